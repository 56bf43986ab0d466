#include "cli/DemoHabits.h"

#include "cli/DemoContents.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/SortOrder.h"
#include "model/store/ObjectContext.h"

#include <QHash>

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::days demoDays{60};

class HabitWriter {
public:
    HabitWriter(ObjectContext &context, QString userID)
        : m_context(context), m_userID(std::move(userID)), m_today(context.clock().today())
    {
    }

    void write()
    {
        for (const char *each : {K_HABIT_SECTION_NAME_DEFAULT_MORNING, K_HABIT_SECTION_NAME_DEFAULT_AFTERNOON,
                                 K_HABIT_SECTION_NAME_DEFAULT_NIGHT}) {
            KWHabitSectionModel section;
            section.userID = m_userID;
            section.name = QString::fromLatin1(each);
            section.sortOrder = m_order += KWSortOrderStep;
            m_sections.insert(section.name, m_context.insert<KWHabitSection>(section).sid());
        }
        for (const Demo::Habit &each : Demo::habits())
            writeHabit(each);
    }

private:
    void writeHabit(const Demo::Habit &habit)
    {
        KWHabitModel model;
        model.userID = m_userID;
        model.name = habit.name;
        model.iconRes = habit.iconRes;
        model.color = habit.color;
        model.sectionID = m_sections.value(QString{habit.section});
        model.repeatRule = habit.repeatRule;
        model.isRealType = !habit.unit.isEmpty();
        model.unit = habit.unit;
        model.goal = habit.goal;
        model.startStamp = DayStamp::fromDay(m_today - demoDays);
        model.sortOrder = m_order += KWSortOrderStep;
        KWHabit &written = m_context.insert<KWHabit>(std::move(model));
        for (Day day = m_today - demoDays; day <= m_today; day += std::chrono::days{1})
            if (written.isDueOn(day)) writeDay(habit, written, day);
        written.updateStreaks();
    }

    void writeDay(const Demo::Habit &habit, KWHabit &written, Day day)
    {
        const qsizetype ago = (m_today - day).count();
        const bool isThisWeek = ago < habit.week.size();
        const char how = isThisWeek ? habit.week[habit.week.size() - 1 - ago].toLatin1()
                         : ago % habit.missesOneOf == habit.missesOneOf - 1 ? '.'
                                                                            : 'd';
        if (how == '.') return;
        if (how == 's') return writeSkip(written, day);
        KWHabitCheckin &checkin = written.makeCheckInAtDateStamp(DayStamp::fromDay(day));
        if (how == 'x') return checkin.markUnAchieved();
        checkin.updateValue(how == 'd' ? written->goal : how - '0');
        if (checkin.isDone())
            checkin.set(&KWHabitCheckinModel::checkinTime,
                        std::optional{m_context.clock().zone().toInstant(LocalTime{day} + 8h)});
    }

    void writeSkip(const KWHabit &written, Day day)
    {
        KWHabitSkipModel skip;
        skip.userID = m_userID;
        skip.habitID = written.sid();
        skip.stamp = DayStamp::fromDay(day);
        m_context.insert<KWHabitSkip>(skip);
    }

    ObjectContext &m_context;
    QString m_userID;
    Day m_today;
    QHash<QString, QString> m_sections;
    std::int64_t m_order = 0;
};

} // namespace

void writeDemoHabits(const QString &userID, ObjectContext &context) { HabitWriter{context, userID}.write(); }
