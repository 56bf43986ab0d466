#include "focus/FocusRecordWriter.h"

#include "corvexkit/log/CXLog.h"
#include "corvexkit/time/TimeText.h"
#include "focus/FocusLimits.h"
#include "model/OrvaneKit.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWHabit.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/StoreFailure.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger focusLog{u"focus"};

void describe(KWFocusSliceModel &slice, const FocusTarget &target, ObjectContext &context)
{
    if (const KWTask *task = context.find<KWTask>(target.taskID())) {
        slice.title = (*task)->title;
        slice.stringOfTagNames = (*task)->tags.join(u", "_s);
        if (const KWProject *list = task->project()) slice.projectName = (*list)->name;
    } else if (const KWHabit *habit = context.find<KWHabit>(target.habitID())) {
        slice.title = (*habit)->name;
    }
}

void log(const FocusRecord &record)
{
    QString line = u"focus record, %1 to %2 - pause %3"_s
                       .arg(TimeText::fromInstant(record.startDate), TimeText::fromInstant(record.endDate))
                       .arg(record.pauseDuration);
    if (!record.stretches.isEmpty()) line += u", Slices"_s;
    for (const FocusStretch &each : record.stretches)
        line += u" [%1, %2 to %3]"_s.arg(each.target.text(), TimeText::fromInstant(each.startDate),
                                         TimeText::fromInstant(each.endDate));
    focusLog.info(line);
}

} // namespace

Result<QString> FocusRecordWriter::write(const FocusRecord &record)
{
    const auto user = m_kit.account().currentUser();
    if (!user) return Error{storeText("Nobody is signed in.")};
    QString recordID;
    const auto block = [&](ObjectContext &context) -> Result<void> {
        recordID = insert(record, user->sid, context);
        applyCredits(creditsOf(record.stretches, record.type, record.status), record.creditSource(), *user,
                     context);
        return {};
    };
    if (const Result<void> saved = KWCoreDataService{m_kit.manager()}.sync_save(block); !saved)
        return saved.error();
    log(record);
    return recordID;
}

Result<void> FocusRecordWriter::updateFocusSummary(const FocusRecord &record)
{
    const auto user = m_kit.account().currentUser();
    const QList<FocusCredit> credits = creditsOf(record.stretches, record.type, record.status);
    if (!user || credits.isEmpty()) return {};
    return KWCoreDataService{m_kit.manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
        applyCredits(credits, record.creditSource(), *user, context);
        return {};
    });
}

Result<void> FocusRecordWriter::store(const FocusRecord &record)
{
    const auto length = std::chrono::round<std::chrono::seconds>(record.endDate - record.startDate);
    if (record.status != KWPomoStatusCompleted || length < FocusLimits::minimumFocus)
        return updateFocusSummary(record);
    const Result<QString> written = write(record);
    return written ? Result<void>{} : written.error();
}

bool FocusRecordWriter::isStored(const FocusRecord &record) const
{
    const SqlCondition sameStart{.where = "type = ? AND startDate = ? AND userID = ?",
                                 .values = {std::int64_t{record.type}, storedInstant(record.startDate),
                                            m_kit.account().currentUserID()}};
    return !m_kit.context().models<KWPomodoro>(sameStart).isEmpty();
}

QString FocusRecordWriter::insert(const FocusRecord &record, const QString &userID, ObjectContext &context)
{
    KWPomodoroModel session;
    session.userID = userID;
    session.pomoStatus = record.status;
    session.type = record.type;
    session.startDate = record.startDate;
    session.endDate = record.endDate;
    session.pauseDuration = record.pauseDuration;
    QList<KWFocusSliceModel> slices = slicesOf(record.stretches, context);
    for (const KWFocusSliceModel &each : slices)
        if (!each.taskID.isEmpty()) session.taskID = each.taskID;
    const QString recordID = context.insert<KWPomodoro>(std::move(session)).sid();
    for (KWFocusSliceModel &each : slices) {
        each.userID = userID;
        each.pomodoroID = recordID;
        context.insert<KWFocusSlice>(std::move(each));
    }
    return recordID;
}

QList<KWFocusSliceModel> FocusRecordWriter::slicesOf(const QList<FocusStretch> &stretches,
                                                     ObjectContext &context)
{
    QList<KWFocusSliceModel> slices;
    for (const FocusStretch &each : stretches) {
        if (each.isPause || each.length().count() <= 0) continue;
        KWFocusSliceModel slice;
        slice.startDate = each.startDate;
        slice.endDate = each.endDate;
        slice.taskID = each.target.taskID();
        slice.habitID = each.target.habitID();
        describe(slice, each.target, context);
        slices.append(std::move(slice));
    }
    return slices;
}
