#include "model/store/UndoToken.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWCalSubscription.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWFilter.h"
#include "model/records/KWFocusSlice.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitFocus.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWHabitSkip.h"
#include "model/records/KWPomodoro.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/NextAlert.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

#include <algorithm>
#include <array>
#include <concepts>

namespace {

template <class Visitor>
void forEachKind(Visitor &&visit)
{
    const auto visitAll = [&visit]<class... Records>(std::type_identity<std::tuple<Records...>>) {
        (visit(std::type_identity<Records>{}), ...);
    };
    visitAll(std::type_identity<std::tuple<
                 KWTask, KWChecklistItem, KWAttachment, KWTaskDueDateSortOrder, KWTaskPrioritySortOrder,
                 KWTaskProjectSortOrder, KWTaskTagSortOrder, KWTaskPinnedSortOrder, KWProject, KWProjectGroup,
                 KWTag, KWFilter, KWCalSubscription, KWHabitSection, KWHabit, KWHabitCheckin, KWHabitRecord,
                 KWHabitSkip, KWPomodoro, KWFocusSlice, KWFocusSummary, KWHabitFocus>>{});
}

// The fields that say what a record is, not where it stands with the service nor what follows from them.
template <class Twin>
FieldMask contentFields()
{
    constexpr std::array aside{std::string_view{"etag"},         std::string_view{"modifiedTime"},
                               std::string_view{"syncStatus"},   std::string_view{"pendingChanges"},
                               std::string_view{"remindTime"},   std::string_view{"currentStreak"},
                               std::string_view{"longestStreak"}};
    FieldMask mask = 0;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (std::ranges::find(aside, each.name) == aside.end()) mask |= FieldMask{1} << index;
    });
    return mask;
}

// What belongs to the tasks and habits that were made and was not made with them: it would go with them.
constexpr const char *putIn = R"sql(
WITH made (sid) AS (SELECT value FROM json_each(?)), below (sid) AS (
    SELECT sid FROM tasks WHERE parentId IN made AND parentId <> '' AND isDeleted = 0
    UNION ALL SELECT sid FROM checklistItems WHERE taskID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM attachments WHERE taskID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM comments WHERE taskID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM focusSummaries WHERE taskID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM habitCheckins WHERE habitID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM habitRecords WHERE habitID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM habitSkips WHERE habitID IN made AND isDeleted = 0
    UNION ALL SELECT sid FROM habitFocus WHERE habitID IN made AND isDeleted = 0)
SELECT count(*) FROM below WHERE sid NOT IN made)sql";

Error changedMeanwhile() { return {storeText("This was changed in the meantime, so it cannot be undone.")}; }

template <class Record, class Twin>
Result<void> takeBackMaking(const Twin &made, ObjectContext &context)
{
    Record *record = context.find<Record>(made.sid);
    if (!record || record->isDeleted()) return {};
    if (difference(record->model(), made) & contentFields<Twin>()) return changedMeanwhile();
    if (record->model().syncStatus == KWSyncStatusCreated)
        context.remove(*record);
    else
        record->markDelete();
    return {};
}

// Where the change made another alert, the one before comes back as it was: worked out from now on, one
// that was due and not shown yet would be lost.
template <class Record, class Twin>
void takeBackAlert(const Twin &before, const Twin &after, Record &record)
{
    if constexpr (requires { record.keepAlert(before.remindTime); }) {
        const auto differ = [](const Twin &one, const Twin &other) {
            return needsNewAlert(std::optional{one}, other);
        };
        if ((differ(before, after) || differ(after, before)) && !differ(before, record.model()))
            record.keepAlert(before.remindTime);
    }
}

template <class Twin>
constexpr bool isHabitDay = std::same_as<Twin, KWHabitCheckinModel> ||
                            std::same_as<Twin, KWHabitRecordModel> || std::same_as<Twin, KWHabitSkipModel>;

// Tags, places in lists, days of habits: nothing else goes with them.
template <class Twin>
constexpr bool comesBack =
    std::same_as<Twin, KWTagModel> || isHabitDay<Twin> || std::derived_from<Twin, KWTaskSortOrderFields>;

template <class Record, class Twin>
Result<void> takeBackRemoval(const Twin &before, ObjectContext &context)
{
    if (!context.find<Record>(before.sid)) context.insert<Record>(Twin{before});
    return {};
}

// Whether what the record stands in is there: it may have gone since the record left it.
bool isThere(const KWTaskModel &task, ObjectContext &context)
{
    const KWProject *list = context.find<KWProject>(task.projectID);
    const KWTask *parent = task.parentId.isEmpty() ? nullptr : context.find<KWTask>(task.parentId);
    return list && list->isNotDeleted() && (task.parentId.isEmpty() || (parent && parent->isNotDeleted()));
}

bool isThere(const KWProjectModel &list, ObjectContext &context)
{
    if (list.groupID.isEmpty() || list.groupID == KWProjectGroupIDUngrouped) return true;
    const KWProjectGroup *folder = context.find<KWProjectGroup>(list.groupID);
    return folder && folder->isNotDeleted();
}

// That nothing else was entered for its day, neither.
template <class Record>
bool isTheOneOfItsDay(const QString &sid, const QString &habitID, ObjectContext &context,
                      Record *(KWHabit::*ofDay)(int) const, int stamp)
{
    const KWHabit *habit = context.find<KWHabit>(habitID);
    if (!habit || habit->isDeleted()) return false;
    const Record *found = (habit->*ofDay)(stamp);
    return found && found->sid() == sid;
}

bool isThere(const KWHabitCheckinModel &checkin, ObjectContext &context)
{
    return isTheOneOfItsDay(checkin.sid, checkin.habitID, context, &KWHabit::checkInAtDateStamp,
                            checkin.checkinStamp);
}

bool isThere(const KWHabitRecordModel &note, ObjectContext &context)
{
    return isTheOneOfItsDay(note.sid, note.habitID, context, &KWHabit::recordAtDateStamp, note.stamp);
}

bool isThere(const KWHabitSkipModel &skip, ObjectContext &context)
{
    return isTheOneOfItsDay(skip.sid, skip.habitID, context, &KWHabit::skipAtDateStamp, skip.stamp);
}

template <class Twin>
bool isThere(const Twin &, ObjectContext &)
{
    return true;
}

void updateStreaksOf(const QSet<QString> &habitIDs, ObjectContext &context)
{
    for (const QString &each : habitIDs)
        if (KWHabit *habit = context.find<KWHabit>(each); habit && habit->isNotDeleted())
            habit->updateStreaks();
}

template <class Record, class Twin>
Result<void> takeBackChange(const Twin &before, const Twin &after, ObjectContext &context)
{
    Record *record = context.find<Record>(after.sid);
    const FieldMask changed = difference(before, after) & contentFields<Twin>();
    if (!record || (difference(record->model(), after) & changed)) return changedMeanwhile();
    Twin version = record->model();
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (changed >> index & 1) each.of(version) = each.of(before);
    });
    const bool wasDeleted = record->isDeleted();
    record->assign(version);
    if (wasDeleted && record->isNotDeleted()) record->unmarkDelete();
    takeBackAlert(before, after, *record);
    return {};
}

// Others add to these meanwhile, so only the difference is taken back; when their owner is gone, nothing.
template <class Twin>
constexpr bool isSum = std::same_as<Twin, KWFocusSummaryModel> || std::same_as<Twin, KWHabitFocusModel>;

void takeBackSum(const KWFocusSummaryModel &before, const KWFocusSummaryModel &after, ObjectContext &context)
{
    KWTask *task = context.find<KWTask>(after.taskID);
    if (!task) return;
    task->addPomoCount(before.pomoCount - after.pomoCount, after.userServerID);
    task->addPomoDuration(before.pomoDuration - after.pomoDuration, after.userServerID);
    task->addStopwatchDuration(before.stopwatchDuration - after.stopwatchDuration, after.userServerID);
}

void takeBackSum(const KWHabitFocusModel &before, const KWHabitFocusModel &after, ObjectContext &context)
{
    if (KWHabit *habit = context.find<KWHabit>(after.habitID))
        habit->appendTimeInerval(before.duration - after.duration, after.stamp);
}

bool isNone(const KWFocusSummaryModel &sum)
{
    return sum.pomoCount == 0 && sum.pomoDuration == 0 && sum.stopwatchDuration == 0;
}

bool isNone(const KWHabitFocusModel &sum) { return sum.duration == 0; }

template <class Record, class Twin>
void takeBackSum(const std::optional<Twin> &before, const Twin &after, ObjectContext &context)
{
    takeBackSum(before.value_or(Twin{}), after, context);
    Record *sum = before ? nullptr : context.find<Record>(after.sid);
    if (sum && sum->model().syncStatus == KWSyncStatusCreated && isNone(sum->model())) context.remove(*sum);
}

template <class Record, class Versions>
Result<void> takeBack(const Versions &versions, ObjectContext &context)
{
    using Twin = typename Record::Model;
    if constexpr (isSum<Twin>) {
        takeBackSum<Record>(versions.before, versions.after, context);
        return {};
    } else {
        if (versions.isRemoved)
            return takeBackRemoval<Record>(versions.before.value_or(versions.after), context);
        if (versions.before) return takeBackChange<Record>(*versions.before, versions.after, context);
        return takeBackMaking<Record>(versions.after, context);
    }
}

} // namespace

template <class Record>
void UndoToken::note(const ObjectContext &context)
{
    using Twin = typename Record::Model;
    for (const Record *each : context.changed<Record>()) {
        if (each->isRemoved() && !comesBack<Twin>) continue;
        const std::optional<Twin> before = each->storedVersion();
        const bool isContent =
            !before || each->isRemoved() || (difference(*before, each->model()) & contentFields<Twin>());
        if (isContent)
            std::get<QList<Versions<Twin>>>(m_versions).append({before, each->model(), each->isRemoved()});
    }
}

UndoToken UndoToken::of(const ObjectContext &context)
{
    UndoToken token;
    forEachKind([&]<class Record>(std::type_identity<Record>) { token.note<Record>(context); });
    return token;
}

QSet<QString> UndoToken::habitIDs() const
{
    QSet<QString> ids;
    for (const auto &each : std::get<QList<Versions<KWHabitModel>>>(m_versions))
        ids.insert(each.after.sid);
    for (const auto &each : std::get<QList<Versions<KWHabitCheckinModel>>>(m_versions))
        ids.insert(each.after.habitID);
    for (const auto &each : std::get<QList<Versions<KWHabitSkipModel>>>(m_versions))
        ids.insert(each.after.habitID);
    return ids;
}

QStringList UndoToken::madeIDs() const
{
    QStringList ids;
    const auto collect = [&ids](const auto &versions) {
        for (const auto &each : versions)
            if (!each.before) ids.append(each.after.sid);
    };
    std::apply([&](const auto &...lists) { (collect(lists), ...); }, m_versions);
    return ids;
}

bool UndoToken::isEmpty() const
{
    return std::apply([](const auto &...lists) { return (lists.isEmpty() && ...); }, m_versions);
}

Result<void> UndoToken::undo(KWCoreDataManager &manager) const
{
    return KWCoreDataService{manager}.sync_save([this](ObjectContext &context) -> Result<void> {
        if (context.number(putIn, {idList(madeIDs())}) > 0) return changedMeanwhile();
        Result<void> done;
        forEachKind([&]<class Record>(std::type_identity<Record>) {
            for (const auto &each : std::get<QList<Versions<typename Record::Model>>>(m_versions)) {
                if (!done) return;
                done = takeBack<Record>(each, context);
            }
        });
        forEachKind([&]<class Record>(std::type_identity<Record>) {
            for (const auto &each : std::get<QList<Versions<typename Record::Model>>>(m_versions))
                if (const Record *record = context.find<Record>(each.after.sid);
                    done && record && record->isNotDeleted() && !isThere(record->model(), context))
                    done = changedMeanwhile();
        });
        if (done) updateStreaksOf(habitIDs(), context);
        return done;
    });
}
