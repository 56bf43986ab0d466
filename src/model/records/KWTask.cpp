#include "model/records/KWTask.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWColumn.h"
#include "model/records/KWFocusSummary.h"
#include "model/records/KWProject.h"
#include "model/records/KWTaskItemTree.h"
#include "model/records/NextAlert.h"
#include "model/records/ZoneMove.h"
#include "model/store/FindAll.h"

#include <algorithm>

namespace {

constexpr const char *childrenOf =
    "parentId = ?1 AND parentId <> '' AND sid <> ?1 AND isDeleted = 0 AND isTrashed = ?2";

template <class Record>
void deleteAllOfTasks(const QStringList &taskIDs, ObjectContext &context)
{
    for (Record *each : context.fetch<Record>(
             {.where = "taskID IN (SELECT value FROM json_each(?))", .values = {idList(taskIDs)}}))
        each->deleteForever();
}

} // namespace

void KWTask::updateStatus(KWTaskStatus status)
{
    set(&KWTaskModel::status, status);
    set(&KWTaskModel::completionDate,
        status == KWTaskStatusOpen ? std::nullopt : std::optional{context().clock().now()});
}

bool KWTask::isOverdue() const
{
    if (model().status != KWTaskStatusOpen || !model().startDate) return false;
    const Instant now = context().clock().now();
    if (!model().isAllDay) return model().endDate.value_or(*model().startDate) < now;
    const CXTimeZone zone = context().clock().zone();
    const Day lastDay =
        zone.dayOf(model().endDate ? *model().endDate - std::chrono::milliseconds{1} : *model().startDate);
    return lastDay < zone.dayOf(now);
}

KWProject *KWTask::project() const
{
    KWProject *project = context().find<KWProject>(model().projectID);
    return project && project->isNotDeleted() ? project : nullptr;
}

KWColumn *KWTask::column() const
{
    KWColumn *column = model().columnID.isEmpty() ? nullptr : context().find<KWColumn>(model().columnID);
    return column && column->isNotDeleted() ? column : nullptr;
}

QList<KWAttachment *> KWTask::attachments() const
{
    return context().fetch<KWAttachment>(
        {.where = "taskID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "id"});
}

QList<KWFocusSummary *> KWTask::focusSummaries() const
{
    return context().fetch<KWFocusSummary>(
        {.where = "taskID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "id"});
}

// The one of that person, or a new one, takes the amount.
template <class Number>
void KWTask::addToFocus(Number KWFocusSummaryModel::*member, Number amount, std::int64_t userServerID)
{
    QList<KWFocusSummary *> summaries = focusSummaries();
    summaries << context().inserted<KWFocusSummary>();
    const auto own = std::ranges::find_if(summaries, [&](const KWFocusSummary *each) {
        return (*each)->taskID == sid() && (*each)->userServerID == userServerID && each->isNotDeleted();
    });
    KWFocusSummary *summary = own == summaries.end() ? nullptr : *own;
    const Number before = summary ? summary->model().*member : Number{};
    const Number after = std::max<Number>(before + amount, 0);
    if (after == before) return;
    if (!summary) {
        KWFocusSummaryModel fresh;
        fresh.userID = model().userID;
        fresh.taskID = sid();
        fresh.userServerID = userServerID;
        summary = &context().insert<KWFocusSummary>(std::move(fresh));
    }
    summary->set(member, after);
    markUpdateForContentUpdate();
}

void KWTask::addPomoCount(int count, std::int64_t myUserServerID)
{
    addToFocus(&KWFocusSummaryModel::pomoCount, count, myUserServerID);
}

void KWTask::addPomoDuration(std::int64_t seconds, std::int64_t myUserServerID)
{
    addToFocus(&KWFocusSummaryModel::pomoDuration, seconds, myUserServerID);
}

void KWTask::addStopwatchDuration(std::int64_t seconds, std::int64_t myUserServerID)
{
    addToFocus(&KWFocusSummaryModel::stopwatchDuration, seconds, myUserServerID);
}

QList<KWChecklistItem *> KWTask::orderedChecklistItems() const
{
    return context().fetch<KWChecklistItem>(
        {.where = "taskID = ? AND isDeleted = 0", .values = {sid()}, .orderBy = "sortOrder, sid"});
}

QList<KWTask *> KWTask::children(KWTask &parent, ObjectContext &context)
{
    QList<KWTask *> below =
        context.fetch<KWTask>({.where = childrenOf, .values = {parent.sid(), int(parent->isTrashed)}});
    below.removeIf([&parent](const KWTask *each) { return (*each)->parentId != parent.sid(); });
    KWTaskItemTree::putInOrder(below, parent->childIds);
    return below;
}

bool KWTask::hasChildren() const
{
    const std::string sql = std::string{"SELECT EXISTS (SELECT 1 FROM tasks WHERE "} + childrenOf + ')';
    return context().number(sql.c_str(), {sid(), int(model().isTrashed)}) != 0;
}

QList<KWTask *> KWTask::descendantTasks(KWTask &task, Closed closed, ObjectContext &context)
{
    QList<KWTask *> below = KWTaskItemTree::plant(task, context).descendants();
    if (closed == Closed::LeaveOut)
        below.removeIf([](const KWTask *each) { return (*each)->status != KWTaskStatusOpen; });
    return below;
}

void KWTask::deleteTaskAndDescendantsForever(const QList<KWTask *> &tasks, ObjectContext &context)
{
    const KWTaskItemForest forest = KWTaskItemForest::plant(tasks, context);
    for (KWTask *each : forest.rootTasks())
        each->detachFromParent();
    QStringList ids;
    for (const KWTask *each : forest.flatTasks())
        ids.append(each->sid());
    deleteAllOfTasks<KWChecklistItem>(ids, context);
    deleteAllOfTasks<KWAttachment>(ids, context);
    for (KWTask *each : forest.flatTasks())
        each->deleteForever();
}

bool KWTask::adaptToTimeZoneFromDesignatedToLocalIfNeeded(const CXTimeZone &lastLocalZone)
{
    const KWTaskModel &task = model();
    if (!task.startDate || !(task.isAllDay || task.isFloating)) return false;
    const CXTimeZone local = context().clock().zone();
    const CXTimeZone designated = CXTimeZone::named(task.timeZone).value_or(lastLocalZone);
    const CXTimeZone from =
        task.isAllDay ? ZoneMove::zoneOfDay(*task.startDate, {designated, lastLocalZone, local}) : designated;
    const ZoneMove move{from, local};
    const auto moved = [&](Instant date) { return task.isAllDay ? move.day(date) : move.time(date); };

    KWTaskModel adapted = task;
    adapted.startDate = moved(*task.startDate);
    if (task.endDate)
        adapted.endDate =
            task.isAllDay ? move.endOfDays(*task.endDate, *task.startDate) : move.time(*task.endDate);
    std::ranges::transform(task.exDates, adapted.exDates.begin(), moved);
    if (adapted == task) return false;
    adapted.timeZone = local.identifier();
    // Moved and not worked out anew: an alert that was shown does not come again at the same time of day.
    // One that was worked out here, because somebody saved the task since the journey, stays.
    const auto isOfHere = [&](Instant alert) {
        return alert == task.snoozedRemindDate ||
               (isAlert(adapted, alert, local) && !isAlert(task, alert, from));
    };
    if (task.remindTime && !isOfHere(*task.remindTime)) adapted.remindTime = move.time(*task.remindTime);
    assign(adapted);
    keepAlert(adapted.remindTime);
    return true;
}

void KWTask::keepAlert(std::optional<Instant> alert)
{
    set(&KWTaskModel::remindTime, alert);
    m_keepsAlert = true;
}

void KWTask::willSave()
{
    if (std::exchange(m_keepsAlert, false) || !needsNewAlert(storedVersion(), model())) return;
    set(&KWTaskModel::remindTime, nextAlert(model(), context().clock().now(), context().clock().zone()));
}

bool KWTask::isModified() const { return !differsInAlertAlone(storedVersion(), model()); }

void KWTask::trashTaskAndDescendants(const QList<KWTask *> &tasks, ObjectContext &context)
{
    for (KWTask *each : KWTaskItemForest::plant(tasks, context).flatTasks())
        each->set(&KWTaskModel::isTrashed, true);
}

void KWTask::becomeChecklist()
{
    if (!isTextKind()) return;
    set(&KWTaskModel::desc, model().content);
    set(&KWTaskModel::content, QString{});
    set(&KWTaskModel::kind, KWTaskKindChecklist);
}

void KWTask::moveToList(const QString &listID)
{
    if (model().projectID != listID) set(&KWTaskModel::columnID, QString{});
    set(&KWTaskModel::projectID, listID);
}

void KWTask::detachFromParent()
{
    if (!hasParent()) return;
    if (KWTask *parent = context().find<KWTask>(model().parentId)) {
        QStringList childIds = (*parent)->childIds;
        if (childIds.removeAll(sid()) > 0) parent->set(&KWTaskModel::childIds, childIds);
    }
    set(&KWTaskModel::parentId, QString{});
}

void KWTask::attachBehind(const KWTask &sibling)
{
    KWTask *parent = sibling.hasParent() ? context().find<KWTask>(sibling->parentId) : nullptr;
    set(&KWTaskModel::parentId, parent ? parent->sid() : QString{});
    if (!parent) return;
    QStringList childIds = (*parent)->childIds;
    const qsizetype place = childIds.indexOf(sibling.sid());
    childIds.insert(place < 0 ? childIds.size() : place + 1, sid());
    parent->set(&KWTaskModel::childIds, childIds);
}
