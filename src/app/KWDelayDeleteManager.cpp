#include "app/KWDelayDeleteManager.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/KWEventBus.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskPermissions.h"
#include "model/store/UndoToken.h"
#include "model/text/DisplayTitle.h"
#include "model/text/ShortenedText.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger deleteLog{u"delete"};
constexpr int longestTitle = 10;

QString deletedText(const QString &title)
{
    return KWLocalizedString("%@ deleted")
        .replace("%@"_L1, shortened(displayTitle(title), longestTitle, u"..."_s));
}

QStringList idsOf(const QList<KWTask *> &tasks)
{
    QStringList ids;
    for (const KWTask *each : tasks)
        ids.append(each->sid());
    return ids;
}

} // namespace

KWDelayDeleteManager::KWDelayDeleteManager(const Collaborators &collaborators)
    : m_with(collaborators)
    , m_signOut(m_with.center.addObserver(KWUserDidSignOutNotification,
                                          [this](const KWNotification &) { commitPending(); }))
{
}

void KWDelayDeleteManager::deleteTasks(const QStringList &taskIDs)
{
    commitPending();
    ObjectContext &context = m_with.manager.MR_defaultContext();
    QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
    tasks.removeIf([](const KWTask *each) { return (*each)->isTrashed; });
    if (tasks.isEmpty()) return;
    const KWTaskItemForest forest = KWTaskItemForest::plant(tasks, context);
    if (const Result<void> allowed = mayChange(forest.flatTasks()); !allowed)
        return m_with.toast.showFailure(allowed.error().sentence);

    const QString message =
        tasks.size() == 1 ? deletedText((*tasks.first())->title) : KWLocalizedString("Deleted");
    start({.toast = &m_with.toast,
           .type = KWDelayDeleteType::Tasks,
           .ids = idsOf(forest.flatTasks()),
           .commit = [this, roots = idsOf(forest.rootTasks())] { return trash(roots); },
           .undo = {}},
          message);
}

Result<void> KWDelayDeleteManager::trash(const QStringList &rootIDs)
{
    UndoToken token;
    const auto saved =
        KWCoreDataService{m_with.manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWTask::trashTaskAndDescendants(findAll<KWTask>(rootIDs, context), context);
            token = UndoToken::of(context);
            return {};
        });
    if (!saved) return saved;
    m_pending->restore = [this, token] {
        if (const Result<void> restored = token.undo(m_with.manager); !restored)
            m_with.toast.showFailure(restored.error().sentence);
    };
    return {};
}

void KWDelayDeleteManager::announce(const QStringList &taskIDs)
{
    eb_postTasksDeleted(m_with.bus, taskIDs);
    m_with.sync.syncImmediatelyWithPushCompletionHandler([](const Result<void> &pushed) {
        if (!pushed) deleteLog.warning(pushed.error().sentence);
    });
}

Result<void> KWDelayDeleteManager::deleteTaskAndDescendantsForever(const QString &taskID)
{
    if (containsTask(taskID)) commitPending();
    QStringList ids;
    const auto saved = KWCoreDataService{m_with.manager}.sync_save([&](ObjectContext &context) {
        const QList<KWTask *> tasks = findAll<KWTask>({taskID}, context);
        if (const Result<void> allowed = mayChange(tasks); !allowed) return allowed;
        ids = idsOf(KWTaskItemForest::plant(tasks, context).flatTasks());
        KWTask::deleteTaskAndDescendantsForever(tasks, context);
        return Result<void>{};
    });
    if (!saved) return saved;
    announce(ids);
    return {};
}

void KWDelayDeleteManager::deleteEvents(const QStringList &eventIDs, const QString &title,
                                        std::function<Result<void>()> deleteBlock)
{
    commitPending();
    if (eventIDs.isEmpty()) return;
    start({.toast = &m_with.toast,
           .type = KWDelayDeleteType::Events,
           .ids = eventIDs,
           .commit = std::move(deleteBlock),
           .undo = {}},
          eventIDs.size() == 1 ? deletedText(title) : KWLocalizedString("Deleted"));
}

void KWDelayDeleteManager::deleteChecklistItemsWithCount(int count, ToastPort &window,
                                                         const std::function<void()> &deleteBlock,
                                                         const std::function<void()> &undoBlock,
                                                         std::function<void()> timeoutBlock)
{
    commitPending();
    if (count <= 0) return;
    deleteBlock();
    start({.toast = &window,
           .type = std::nullopt,
           .ids = {},
           .commit =
               [this, timeoutBlock = std::move(timeoutBlock), undoBlock] {
                   timeoutBlock();
                   m_pending->restore = undoBlock;
                   return Result<void>{};
               },
           .undo = undoBlock},
          KWLocalizedString("Deleted"));
}

void KWDelayDeleteManager::start(Pending pending, const QString &message)
{
    if (pending.type)
        for (const QString &each : pending.ids)
            setOf(*pending.type).insert(each);
    m_pending = std::move(pending);
    post(*m_pending, KWDelayDeleteStatus::Started);
    m_pending->offer = m_pending->toast->showUndo(message, [this] { undo(); });
    endLater();
}

void KWDelayDeleteManager::endLater()
{
    m_end = m_with.clock.callAfter(undoTime, [this] {
        if (m_pending->toast->isUndoHeld(m_pending->offer))
            endLater();
        else
            commitPending();
    });
}

std::optional<KWDelayDeleteManager::Pending> KWDelayDeleteManager::end()
{
    m_end.cancel();
    if (!m_pending) return std::nullopt;
    if (m_pending->type)
        for (const QString &each : m_pending->ids)
            setOf(*m_pending->type).remove(each);
    m_pending->toast->endUndo(m_pending->offer, std::exchange(m_pending->restore, {}));
    return std::exchange(m_pending, std::nullopt);
}

void KWDelayDeleteManager::undo()
{
    const std::optional<Pending> undone = end();
    if (!undone) return;
    if (undone->undo) undone->undo();
    post(*undone, KWDelayDeleteStatus::Undone);
}

void KWDelayDeleteManager::commitPending()
{
    if (!m_pending) return;
    const Result<void> committed = m_pending->commit();
    const std::optional<Pending> ended = end();
    if (committed && ended->type == KWDelayDeleteType::Tasks) announce(ended->ids);
    post(*ended, committed ? KWDelayDeleteStatus::Committed : KWDelayDeleteStatus::Undone);
    if (!committed) ended->toast->showFailure(committed.error().sentence);
}

void KWDelayDeleteManager::post(const Pending &pending, KWDelayDeleteStatus status)
{
    if (!pending.type) return;
    m_with.center.post(
        delayDeleteStatusChangedNotification, {},
        {{u"type"_s, int(*pending.type)}, {u"status"_s, int(status)}, {u"taskIDs"_s, pending.ids}});
}

QSet<QString> &KWDelayDeleteManager::setOf(KWDelayDeleteType type)
{
    return type == KWDelayDeleteType::Tasks ? m_tasks : m_events;
}
