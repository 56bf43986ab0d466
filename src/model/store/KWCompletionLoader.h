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

    /// Of a page for which one row more than `limit` was asked; that one is let go.
    void updateIsTotallyLoaded(std::int64_t limit);
};

/// Pages of completed tasks. The pages of an account on this computer come from the store, which has all
/// of them. Main thread; the completion is called there, unless the loader goes first.
class KWCompletionLoader {
public:
    using Completion = std::function<void(const Result<CompletedPage> &)>;

    KWCompletionLoader(KWCoreDataManager &manager, QString userID);

    static constexpr int pageSize = 50;

    /// The page behind the last one that the section got, of these lists; of all that the smart list
    /// Completed shows when there are none. Pages of one section are loaded one after another.
    void loadCompletedTasks(const QString &sectionID, const QStringList &projectIDs, Completion completion);
    /// All that were completed in [begin, end).
    void loadCalendarCompletedTasks(Instant beginDate, Instant endDate, Completion completion);

    /// The completion of the last task that the section got; nothing before its first page, and for a task
    /// without one.
    std::optional<Instant> earliestTaskCompletionDate(const QString &sectionID) const;
    /// The section begins at the first page again. Pages asked for before still come.
    void reset(const QString &sectionID) { m_sections.remove(sectionID); }

private:
    struct Life {};
    struct WantedPage {
        QStringList projectIDs;
        Completion completion;
    };
    struct Section {
        std::optional<CompletionCursor> end; // of the last page
        QList<WantedPage> wanted;            // the first of them is under way
    };

    void load(const CompletedTasksRequest &request, Completion completion);
    void loadNextPage(const std::shared_ptr<Section> &section);

    KWCoreDataManager &m_manager;
    QString m_userID;
    QHash<QString, std::shared_ptr<Section>> m_sections;
    std::shared_ptr<Life> m_life = std::make_shared<Life>();
};
