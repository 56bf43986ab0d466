#include "cli/DemoFocus.h"

#include "cli/DemoContents.h"
#include "focus/FocusRecordWriter.h"
#include "model/records/KWHabit.h"
#include "model/records/KWPomoSettings.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserModel.h"

#include <QHash>

namespace {

constexpr int weeks = 3;

class FocusWriter {
public:
    FocusWriter(ObjectContext &context, const QString &userID) : m_context(context)
    {
        m_user.sid = userID;
        for (const KWTask *each : context.inserted<KWTask>())
            if (!m_targets.contains((*each)->title))
                m_targets.insert((*each)->title, FocusTarget::task(each->sid()));
        for (const KWHabit *each : context.inserted<KWHabit>())
            m_targets.insert((*each)->name, FocusTarget::habit(each->sid()));
    }

    void write()
    {
        writeGoal();
        for (int week = weeks - 1; week >= 0; --week) {
            int number = week;
            for (const Demo::Focus &each : Demo::focus())
                if (week == 0 || ++number % 4 != 0) writeSession(each, week);
        }
    }

private:
    void writeGoal()
    {
        KWPomoSettingsModel settings;
        settings.sid = settings.userID = m_user.sid;
        settings.dailyPomoGoal = Demo::dailyPomoGoal;
        m_context.insert<KWPomoSettings>(std::move(settings));
    }

    void writeSession(const Demo::Focus &focus, int week)
    {
        const CXTimeZone zone = m_context.clock().zone();
        const Day day = zone.dayOf(m_context.clock().now()) - std::chrono::days{focus.daysAgo + 7 * week};
        FocusRecord record{.startDate = zone.toInstant(LocalTime{day} + focus.from),
                           .type = focus.type,
                           .pauseDuration = std::chrono::seconds{focus.pause}.count()};
        record.endDate = record.startDate + focus.length + focus.pause;
        if (record.endDate > m_context.clock().now()) return;
        record.stretches = stretchesOf(focus, record);
        FocusRecordWriter::insert(record, m_user.sid, m_context);
        applyCredits(creditsOf(record.stretches, record.type, record.status), record.creditSource(), m_user,
                     m_context);
    }

    QList<FocusStretch> stretchesOf(const Demo::Focus &focus, const FocusRecord &record) const
    {
        const FocusTarget target = m_targets.value(focus.what);
        FocusStretch first{.startDate = record.startDate, .endDate = record.endDate, .target = target};
        if (focus.pause.count() == 0) return {first};
        first.endDate = record.startDate + focus.length / 2;
        return {first,
                {.startDate = first.endDate + focus.pause, .endDate = record.endDate, .target = target}};
    }

    ObjectContext &m_context;
    KWUserModel m_user;
    QHash<QString, FocusTarget> m_targets; // by title
};

} // namespace

void writeDemoFocus(const QString &userID, ObjectContext &context) { FocusWriter{context, userID}.write(); }
