#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWTaskModel.h"
#include "model/store/UndoToken.h"

class KWAccountManager;
class KWCoreDataManager;

/// The trash of the signed-in user: tasks that were deleted and can be restored, those deleted last
/// first, page by page. Main thread.
class KWTrashDataService {
public:
    static constexpr qsizetype pageSize = 50;

    KWTrashDataService(KWCoreDataManager &manager, const KWAccountManager &account)
        : m_manager(manager), m_account(account)
    {
    }

    /// The pages loaded so far; none before the first refresh().
    const QList<KWTaskModel> &tasks() const { return m_tasks; }
    bool hasMore() const { return m_hasMore; }

    /// Reads again as many tasks as were loaded, the first page at least.
    Result<void> refresh();
    /// Reads another page, and the earlier ones again.
    Result<void> loadNextPage();
    /// Forgets what was loaded.
    void reset();

    /// Takes the tasks out of the trash with all that is below them, each to the top of its list; to
    /// the inbox when that is gone, archived or may not be written. `toListID` sends all to one list
    /// instead. A task whose parent is elsewhere or in the trash still leaves it.
    Result<UndoToken> restore(const QStringList &taskIDs, const QString &toListID = {});
    /// Deletes those of the tasks that are in the trash, and all that is below them there, for good.
    /// Refused as a whole when a list may only be read.
    Result<void> deleteForever(const QStringList &taskIDs);
    /// Deletes everything in the trash for good; what is of a list that may only be read stays. When that
    /// is all there is, a sentence says so.
    Result<void> empty();

private:
    Result<void> load(qsizetype count);
    QString listToRestoreTo(const KWTaskModel &task, ObjectContext &context) const;

    KWCoreDataManager &m_manager;
    const KWAccountManager &m_account;
    QList<KWTaskModel> m_tasks;
    bool m_hasMore = true;
};
