#pragma once

#include "model/account/KWAccountManager.h"
#include "model/events/KWEventBus.h"
#include "model/events/PendingDeletes.h"
#include "model/store/KWListDataFetcher.h"

#include <functional>
#include <memory>
#include <vector>

/// The rows of the list that the middle pane shows, kept true while tasks and the day change. Tasks
/// that wait to be deleted are left out. The top of a long list is there at once; the rest follows from the
/// background. Main thread.
class KWTaskListService {
public:
    KWTaskListService(KWCoreDataManager &manager, KWAccountManager &account, KWNotificationCenter &center,
                      KWEventBus &bus);

    const KWListIdentifier &list() const { return m_list; }
    const QList<KWTaskListItemModel> &rows() const { return m_rows; }

    /// Tasks that have waited to be deleted since before the service was there. To be told before select().
    void leaveOut(const QSet<QString> &waitingTasks) { m_pendingDeletes.startWith(waitingTasks); }
    void select(const KWListIdentifier &list);
    void reload();
    /// No list is selected any more.
    void clear();

    /// The rows are other ones now.
    std::function<void()> onRowsChanged;
    /// The rows could not be read; the sentence says why.
    std::function<void(const QString &)> onFailure;

private:
    struct Request {};

    bool readTop();
    void readAll();
    void take(QList<KWTaskListItemModel> rows);
    void leaveOutPending(QList<KWTaskListItemModel> &rows) const;
    bool isLongList() const;

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    KWListIdentifier m_list;
    QList<KWTaskListItemModel> m_rows;
    PendingDeletes m_pendingDeletes;
    bool m_showsOtherList = false;      // the rows are still those of the list selected before
    std::shared_ptr<Request> m_request; // the latest; an answer to another one is dropped
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
};
