#include "lists/TaskArranger.h"

#include "lists/KWTaskListService.h"
#include "lists/SectionEntry.h"
#include "model/records/KWProject.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FindAll.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/TaskPermissions.h"
#include "model/store/TaskPositions.h"

#include <algorithm>
#include <ranges>

namespace {

using Row = KWTaskListItemModel;

Error error(const char *sentence) { return {KWLocalizedString(sentence)}; }

// The tasks that stand in the section on their own.
QStringList rootsOf(const KWTaskCategory &section)
{
    QStringList roots;
    for (const TaskListRow &each : flatRows({section}, {}))
        if (each.isTask() && each.depth == 0) roots.append(each.id);
    return roots;
}

// The one of them in whose tree the task stands.
QString rootOf(const QString &taskID, const KWTaskCategory &section)
{
    QString root;
    for (const TaskListRow &each : flatRows({section}, {})) {
        if (!each.isTask()) continue;
        if (each.depth == 0) root = each.id;
        if (each.id == taskID) return root;
    }
    return {};
}

QStringList withMoved(QStringList inOrder, const QStringList &moved, const QString &after)
{
    qsizetype place = after.isEmpty() ? 0 : inOrder.indexOf(after) + 1;
    while (place > 0 && moved.contains(inOrder.at(place - 1)))
        --place;
    const QString anchor = place > 0 ? inOrder.at(place - 1) : QString{};
    inOrder.removeIf([&moved](const QString &each) { return moved.contains(each); });
    place = anchor.isEmpty() ? 0 : inOrder.indexOf(anchor) + 1;
    for (const QString &each : moved)
        inOrder.insert(place++, each);
    return inOrder;
}

const Row *rowOf(const QString &taskID, const KWTaskListService &shown)
{
    for (const KWTaskCategory &each : shown.categories())
        for (const Row &row : each.models())
            if (row.sid == taskID) return &row;
    return nullptr;
}

const KWTaskCategory *sectionOf(const QString &taskID, const KWTaskListService &shown)
{
    for (const KWTaskCategory &each : shown.categories())
        for (const Row &row : each.models())
            if (row.sid == taskID) return &each;
    return nullptr;
}

bool isOrderedByTasks(const KWTaskCategory &section, const KWTaskListService &shown)
{
    return shown.sortType() == KWTaskSortTypeCustom && (section.isDefault() || section.isColumn());
}

bool isOrderedByHand(const KWTaskCategory &section, const KWTaskListService &shown)
{
    return isOrderedByTasks(section, shown) || positionGroup(section);
}

bool isAbove(const QStringList &taskIDs, const QString &taskID, const KWTaskListService &shown)
{
    QSet<QString> passed;
    for (QString above = taskID; !above.isEmpty() && !passed.contains(above);) {
        if (taskIDs.contains(above)) return true;
        passed.insert(above);
        const Row *row = rowOf(above, shown);
        above = row ? row->parentId : QString{};
    }
    return false;
}

// Between the neighbours; when there is no room left, all of them make some.
void placeByTasks(const QList<KWTask *> &moved, const QStringList &inOrder, ObjectContext &context)
{
    const qsizetype first = inOrder.indexOf(moved.first()->sid());
    const auto orderAt = [&](qsizetype place) -> std::optional<std::int64_t> {
        const KWTask *task = context.find<KWTask>(inOrder.value(place));
        return task ? std::optional{(*task)->sortOrder} : std::nullopt;
    };
    const auto above = orderAt(first - 1);
    const auto below = orderAt(first + moved.size());
    const std::int64_t step =
        above && below ? (*below - *above) / (moved.size() + 1) : std::int64_t{KWSortOrderStep};
    std::int64_t order = above ? *above : below ? *below - step * (moved.size() + 1) : 0;
    for (KWTask *each : moved)
        KWEntitySortOrder::update(*each, order += step);
    if (step < 1) resetSortOrderIfNeeded(findAll<KWTask>(inOrder, context));
}

// Puts the tasks and `all` that is below them into the list of the parent, and them below it.
Result<void> putBelow(KWTask &parent, const QList<KWTask *> &tasks, const QList<KWTask *> &all,
                      const QString &after)
{
    if (all.contains(&parent)) return error("A task cannot be put below itself.");
    if (const Result<void> allowed = mayChangeOutsideTrash(&parent); !allowed) return allowed;
    QStringList children;
    for (const KWTask *each : KWTask::children(parent, parent.context()))
        children.append(each->sid());
    QStringList moved;
    for (KWTask *each : tasks) {
        if ((*each)->parentId != parent.sid()) each->detachFromParent();
        each->set(&KWTaskModel::parentId, parent.sid());
        moved.append(each->sid());
    }
    for (KWTask *each : all)
        each->moveToList(parent->projectID);
    parent.set(&KWTaskModel::childIds, withMoved(children, moved, after == parent.sid() ? QString{} : after));
    return {};
}

// Out of its parent and behind it, in the parent of that or in its list.
Result<void> putBehindParent(KWTask &task, KWTask &parent)
{
    ObjectContext &context = task.context();
    if (KWTask *above = parent.hasParent() ? context.find<KWTask>(parent->parentId) : nullptr)
        return putBelow(*above, {&task}, {&task}, parent.sid());
    task.detachFromParent();
    QStringList inOrder;
    if (const KWProject *list = parent.project())
        for (const KWTask *each : list->orderedTasks())
            inOrder.append(each->sid());
    placeByTasks({&task}, withMoved(inOrder, {task.sid()}, parent.sid()), context);
    return {};
}

Result<void> putIntoSection(const KWTaskCategory &section, const TaskDropPlace &place,
                            const KWTaskItemForest &forest, const KWTaskListService &shown,
                            ObjectContext &context)
{
    const QList<KWTask *> roots = forest.rootTasks();
    QStringList moved;
    for (KWTask *each : roots) {
        const KWTaskCategory *from = sectionOf(each->sid(), shown);
        // A subtask on its own row, whose parent is not in the list, stays below it.
        const bool leavesParent = each->hasParent() && rowOf((*each)->parentId, shown);
        if (from && (from != &section || leavesParent))
            if (const Result<void> entered = enterSection(*each, *from, section); !entered) return entered;
        if (leavesParent) each->detachFromParent();
        moved.append(each->sid());
    }
    if (!isOrderedByHand(section, shown)) return {};
    const QStringList inOrder = withMoved(rootsOf(section), moved, rootOf(place.afterTaskID, section));
    if (isOrderedByTasks(section, shown))
        placeByTasks(roots, inOrder, context);
    else
        arrange(inOrder, moved,
                {shown.shown().positionContext(),
                 section.isPinned() ? KWTaskSortTypePinnedDate : shown.sortType(), *positionGroup(section)},
                roots.first()->model().userID, context);
    return {};
}

// The tasks with all that is below them, where they may be changed.
Result<KWTaskItemForest> forestOf(const QStringList &taskIDs, ObjectContext &context)
{
    const QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
    if (tasks.isEmpty()) return mayChange(nullptr).error();
    KWTaskItemForest forest = KWTaskItemForest::plant(tasks, context);
    if (const Result<void> allowed = mayChangeOutsideTrash(forest.flatTasks()); !allowed)
        return allowed.error();
    return forest;
}

template <class Change>
Result<UndoToken> saved(const QStringList &taskIDs, KWCoreDataManager &manager, Change &&change)
{
    UndoToken token;
    const auto save = [&](ObjectContext &context) -> Result<void> {
        const Result<KWTaskItemForest> forest = forestOf(taskIDs, context);
        if (!forest) return forest.error();
        const Result<void> changed = change(*forest, context);
        token = UndoToken::of(context);
        return changed;
    };
    const Result<void> done = KWCoreDataService{manager}.sync_save(save);
    if (!done) return done.error();
    return token;
}

} // namespace

QString TaskArranger::hindrance(const QStringList &taskIDs, const TaskDropPlace &place,
                                const KWTaskListService &shown)
{
    if (!shown.isSortable()) return KWLocalizedString("The order of this list cannot be changed.");
    if (place.category < 0 || place.category >= shown.categories().size())
        return KWLocalizedString("There is no such section any more.");
    if (!place.parentTaskID.isEmpty()) {
        if (isAbove(taskIDs, place.parentTaskID, shown))
            return KWLocalizedString("A task cannot be put below itself.");
        const Row *parent = rowOf(place.parentTaskID, shown);
        return parent && parent->isClosed() ? KWLocalizedString("A closed task takes no subtasks.")
                                            : QString{};
    }
    const KWTaskCategory &section = shown.categories().at(place.category);
    const auto isHere = [&](const QString &each) { return sectionOf(each, shown) == &section; };
    const bool areAllHere = std::ranges::all_of(taskIDs, isHere);
    if (areAllHere && (section.isCompleted() || section.isLoadMore()))
        return KWLocalizedString("Completed tasks stand in the order they were completed in.");
    if (section.isHabit()) return KWLocalizedString("Only habits stand here.");
    if (section.isCalSubscription()) return KWLocalizedString("Only events of calendars stand here.");
    if (!areAllHere && section.isOverdue()) return KWLocalizedString("A task cannot be moved into the past.");
    const auto *assignee = section.as<KWAssigneeCategorySection>();
    if (!areAllHere && assignee && assignee->isFormerMember)
        return KWLocalizedString("Tasks are not assigned to somebody who has left the list.");
    const auto isNote = [&](const QString &each) {
        const Row *row = rowOf(each, shown);
        return row && row->isNote();
    };
    if (section.isNoteKind() && !std::ranges::all_of(taskIDs, isNote))
        return KWLocalizedString("Only notes stand here.");
    const bool isByDays = section.isDefault() && !section.hidesHeader();
    if ((areAllHere || isByDays) && !isOrderedByHand(section, shown) && !section.isCompleted())
        return KWLocalizedString("A list that is sorted “%1” is not put in order by hand.")
            .arg(KWTaskSortTypeMenu::titleOf(shown.sortType()));
    return {};
}

Result<UndoToken> TaskArranger::drop(const QStringList &taskIDs, const TaskDropPlace &place,
                                     const KWTaskListService &shown)
{
    if (const QString why = hindrance(taskIDs, place, shown); !why.isEmpty()) return Error{why};
    const KWTaskCategory &section = shown.categories().at(place.category);
    if (place.parentTaskID.isEmpty() && (section.isCompleted() || section.isLoadMore())) {
        const auto ticked = KWTaskTicker{m_manager}.updateStatus(KWTaskStatusCompleted, taskIDs);
        if (!ticked) return ticked.error();
        return ticked->undo;
    }
    return saved(taskIDs, m_manager, [&](const KWTaskItemForest &forest, ObjectContext &context) {
        if (place.parentTaskID.isEmpty()) return putIntoSection(section, place, forest, shown, context);
        KWTask *parent = context.find<KWTask>(place.parentTaskID);
        return parent ? putBelow(*parent, forest.rootTasks(), forest.flatTasks(), place.afterTaskID)
                      : mayChange(parent);
    });
}

Result<UndoToken> TaskArranger::nest(const QStringList &taskIDs, const KWTaskListService &shown)
{
    const KWTaskCategory *section = taskIDs.isEmpty() ? nullptr : sectionOf(taskIDs.first(), shown);
    const Row *first = section ? rowOf(taskIDs.first(), shown) : nullptr;
    QString above; // on the same level
    if (first)
        for (const Row &each : section->models()) {
            if (&each == first) break;
            if (!each.isTask()) continue;
            if (each.parentId == first->parentId ||
                (first->parentId.isEmpty() && rootOf(each.sid, *section) == each.sid))
                above = each.sid;
        }
    if (above.isEmpty()) return error("There is no task above that these could be put below.");
    return saved(taskIDs, m_manager, [&](const KWTaskItemForest &forest, ObjectContext &context) {
        KWTask *parent = context.find<KWTask>(above);
        if (!parent) return mayChange(parent);
        const QList<KWTask *> children = KWTask::children(*parent, context);
        return putBelow(*parent, forest.rootTasks(), forest.flatTasks(),
                        children.isEmpty() ? QString{} : children.last()->sid());
    });
}

Result<UndoToken> TaskArranger::unnest(const QStringList &taskIDs)
{
    return saved(taskIDs, m_manager, [](const KWTaskItemForest &forest, ObjectContext &context) {
        Result<void> done = error("These tasks are below none.");
        const QList<KWTask *> roots = forest.rootTasks();
        for (KWTask *each : roots | std::views::reverse)
            if (KWTask *parent = each->hasParent() ? context.find<KWTask>((*each)->parentId) : nullptr) {
                done = putBehindParent(*each, *parent);
                if (!done) return done;
            }
        return done;
    });
}
