#include "model/store/KWTrashDataService.h"

#include "model/account/KWAccountManager.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"
#include "model/store/KWTaskMover.h"
#include "model/store/TaskPermissions.h"

#include <map>

namespace {

constexpr const char *inTrash = "userID = ? AND isTrashed = 1 AND isDeleted = 0";

} // namespace

Result<void> KWTrashDataService::load(qsizetype count)
{
    // One more, to know whether there is more.
    return KWCoreDataService{m_manager}.sync_perform([&](ObjectContext &context) -> Result<void> {
        m_tasks = context.models<KWTask>({.where = inTrash,
                                          .values = {m_account.currentUserID()},
                                          .orderBy = "modifiedTime DESC, id DESC",
                                          .limit = count + 1});
        m_hasMore = m_tasks.size() > count;
        if (m_hasMore) m_tasks.removeLast();
        return {};
    });
}

Result<void> KWTrashDataService::refresh() { return load(std::max(m_tasks.size(), pageSize)); }

// All of it again: what came into the trash or left it meanwhile is neither shown twice nor skipped over.
Result<void> KWTrashDataService::loadNextPage() { return load(m_tasks.size() + pageSize); }

void KWTrashDataService::reset()
{
    m_tasks.clear();
    m_hasMore = true;
}

QString KWTrashDataService::listToRestoreTo(const KWTaskModel &task, ObjectContext &context) const
{
    const bool canReturn = bool(mayTakeTasks(context.find<KWProject>(task.projectID)));
    return canReturn ? task.projectID : KWProject::inboxIDOfUser(m_account.currentUserID());
}

Result<UndoToken> KWTrashDataService::restore(const QStringList &taskIDs, const QString &toListID)
{
    UndoToken token;
    const auto restored = [&](ObjectContext &context) -> Result<void> {
        std::map<QString, QList<KWTask *>> byList;
        for (KWTask *each : findAll<KWTask>(taskIDs, context))
            if ((*each)->isTrashed)
                byList[toListID.isEmpty() ? listToRestoreTo(each->model(), context) : toListID].append(each);
        for (const auto &[listID, tasks] : byList) {
            const auto moved =
                KWTaskMover::move(tasks, context.find<KWProject>(listID), KWTaskMover::From::Trash, context);
            if (!moved) return moved;
        }
        token = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(restored);
    if (!saved) return saved.error();
    return token;
}

Result<void> KWTrashDataService::deleteForever(const QStringList &taskIDs)
{
    return KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
        tasks.removeIf([](const KWTask *each) { return !(*each)->isTrashed; });
        if (const Result<void> allowed = mayChange(tasks); !allowed) return allowed;
        KWTask::deleteTaskAndDescendantsForever(tasks, context);
        return {};
    });
}

Result<void> KWTrashDataService::empty()
{
    return KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        const auto trashed = context.fetch<KWTask>({.where = inTrash, .values = {m_account.currentUserID()}});
        QList<KWTask *> tasks = trashed;
        tasks.removeIf([](const KWTask *each) { return !mayChange(each); });
        if (tasks.isEmpty()) return mayChange(trashed);
        KWTask::deleteTaskAndDescendantsForever(tasks, context);
        return {};
    });
}
