#include "lists/KWTaskListService.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWSmartProject.h"

namespace {

// More than any screen shows; read in a few milliseconds.
constexpr std::int64_t topRows = 120;

} // namespace

KWTaskListService::KWTaskListService(KWCoreDataManager &manager, KWAccountManager &account,
                                     KWNotificationCenter &center, KWEventBus &bus)
    : m_manager(manager), m_account(account), m_pendingDeletes(center, [this] {
        if (!m_showsOtherList) take(m_rows);
        reload();
    })
{
    const auto reloadOn = [this, &center](const QString &name) {
        m_observations.push_back(center.addObserver(name, [this](const KWNotification &) { reload(); }));
    };
    reloadOn(KWDataDidChangeOutsideMainAppNotification);
    reloadOn(KWSyncDidBatchPullNotification);
    m_observations.push_back(center.addObserver(KWNewDayComesNotification, [this](const KWNotification &) {
        if (KWSmartProject::isDateSensetiveSmartProjectID(m_list.entityID)) reload();
    }));
    m_registration = bus.registerEventBus([this](const StoreChange &change) {
        if (change.touches(RecordKind::Task) || change.touches(RecordKind::ChecklistItem) ||
            change.touches(RecordKind::Project))
            reload();
    });
}

void KWTaskListService::select(const KWListIdentifier &list)
{
    if (list == m_list) return;
    m_list = list;
    m_showsOtherList = true;
    reload();
}

void KWTaskListService::clear()
{
    m_request.reset();
    m_list = {};
    m_showsOtherList = true;
    take({});
}

bool KWTaskListService::isLongList() const { return !m_showsOtherList && m_rows.size() > topRows; }

void KWTaskListService::reload()
{
    m_request = std::make_shared<Request>();
    if (!m_account.isSignedIn() || m_list.entityID.isEmpty()) return;
    // A long list that is shown already is replaced whole, so that it never shrinks meanwhile.
    if (isLongList() || readTop()) readAll();
}

// Whether there may be more.
bool KWTaskListService::readTop()
{
    Result<QList<KWTaskListItemModel>> rows = KWListDataFetcher{m_manager.store().clock()}.reloadDataModel(
        {m_account.currentUserID(), m_list, topRows}, m_manager.MR_defaultContext().connection());
    if (!rows) {
        if (onFailure) onFailure(rows.error().sentence);
        return false;
    }
    const bool isFull = rows->size() >= topRows;
    take(std::move(*rows));
    return isFull;
}

void KWTaskListService::readAll()
{
    auto rows = std::make_shared<QList<KWTaskListItemModel>>();
    const auto read =
        [rows, request = ListDataRequest{m_account.currentUserID(), m_list},
         fetcher = KWListDataFetcher{m_manager.store().clock()}](ObjectContext &context) -> Result<void> {
        Result<QList<KWTaskListItemModel>> all = fetcher.reloadDataModel(request, context.connection());
        if (!all) return all.error();
        *rows = std::move(*all);
        return {};
    };
    KWCoreDataService{m_manager}.async_perform(
        read, [this, rows, answers = std::weak_ptr{m_request}](const Result<void> &done) {
            if (answers.expired()) return;
            if (done)
                take(std::move(*rows));
            else if (onFailure)
                onFailure(done.error().sentence);
        });
}

void KWTaskListService::take(QList<KWTaskListItemModel> rows)
{
    leaveOutPending(rows);
    if (rows == m_rows && !m_showsOtherList) return;
    m_showsOtherList = false;
    m_rows = std::move(rows);
    if (onRowsChanged) onRowsChanged();
}

void KWTaskListService::leaveOutPending(QList<KWTaskListItemModel> &rows) const
{
    if (m_pendingDeletes.taskIDs().isEmpty()) return;
    rows.removeIf([this](const auto &each) { return m_pendingDeletes.containsTask(each.sid); });
}
