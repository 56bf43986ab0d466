#include "model/store/KWTaskMover.h"

#include "model/records/KWProject.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskPermissions.h"

namespace {

bool isPartOfParent(const KWTask &task)
{
    const KWTask *parent = task.hasParent() ? task.context().find<KWTask>(task->parentId) : nullptr;
    return parent && parent->isNotDeleted() && !(*parent)->isTrashed &&
           (*parent)->projectID == task->projectID;
}

void moveTree(const KWTaskItemTree &tree, const KWProject &list)
{
    for (KWTask *each : tree.flatTasks()) {
        each->moveToList(list.sid());
        each->set(&KWTaskModel::isTrashed, false);
    }
    if (!isPartOfParent(tree.root())) tree.root().detachFromParent();
}

} // namespace

Result<void> KWTaskMover::move(const QList<KWTask *> &tasks, KWProject *list, From from,
                               ObjectContext &context)
{
    if (const Result<void> allowed = mayTakeTasks(list); !allowed) return allowed;
    QList<KWTask *> moving = tasks;
    if (from == From::Lists)
        moving.removeIf([list](const KWTask *each) { return (*each)->projectID == list->sid(); });
    const KWTaskItemForest forest = KWTaskItemForest::plant(moving, context);
    if (from == From::Lists)
        if (const Result<void> allowed = mayChangeOutsideTrash(forest.flatTasks()); !allowed) return allowed;

    std::int64_t order = list->sortOrderForNewTask() - (forest.trees().size() - 1) * KWSortOrderStep;
    for (const KWTaskItemTree &each : forest.trees()) {
        KWEntitySortOrder::update(each.root(), order);
        order += KWSortOrderStep;
        moveTree(each, *list);
    }
    return {};
}

Result<UndoToken> KWTaskMover::move(const QStringList &taskIDs, const QString &toListID, From from)
{
    UndoToken token;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) {
        const Result<void> moved =
            move(findAll<KWTask>(taskIDs, context), context.find<KWProject>(toListID), from, context);
        token = UndoToken::of(context);
        return moved;
    });
    if (!saved) return saved.error();
    return token;
}
