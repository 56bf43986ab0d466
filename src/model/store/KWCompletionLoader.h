#pragma once

#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTaskListItemModel.h"
#include "model/store/ListDataRequest.h"

#include <QHash>

#include <functional>
#include <memory>
#include <optional>

/// A page of completed tasks, the latest first.
struct CompletedPage {
    QList<KWTaskListItemModel> models;
    bool isTotallyLoaded = false; ///< nothing follows
};

/// Pages of completed tasks. The pages of an account on this computer come from the store, which has all
/// of them. Main thread; the completion is called there, unless the loader goes first.
class KWCompletionLoader {
public:
    using Completion = std::function<void(const Result<CompletedPage> &)>;

    KWCompletionLoader(KWCoreDataManager &manager, QString userID);

    static constexpr int pageSize = 50;

    /// The page behind the last one that the section got, of these lists; of all that the smart list
    /// Completed shows when there are none.
    void loadCompletedTasks(const QString &sectionID, const QStringList &projectIDs, Completion completion);
    /// All that were completed in [begin, end).
    void loadCalendarCompletedTasks(Instant beginDate, Instant endDate, Completion completion);

    /// The completion of the last task that the section got; nothing before its first page.
    std::optional<Instant> earliestTaskCompletionDate(const QString &sectionID) const;
    /// The section begins at the first page again.
    void reset(const QString &sectionID) { m_ends.remove(sectionID); }

private:
    struct Life {};
    using Taken = std::function<void(const CompletedPage &)>;

    void load(const CompletedTasksRequest &request, const Taken &taken, Completion completion);

    KWCoreDataManager &m_manager;
    QString m_userID;
    QHash<QString, CompletionCursor> m_ends; // by section
    std::shared_ptr<Life> m_life = std::make_shared<Life>();
};
