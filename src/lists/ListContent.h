#pragma once

#include "lists/KWTaskCategory.h"
#include "lists/ShownList.h"

#include <QSet>

class KWListDataFetcher;
struct ListDataRequest;

/// How much of a list is read.
struct ListExtent {
    std::int64_t openTasks = -1; ///< from the top; negative: all
    std::int64_t countToShowOfCompleted = 0;
    int calendarDays = 90; ///< of a calendar, from today on
};

/// A list as it was read. A value: it may cross threads.
struct ListContent {
    ShownList shown{};
    QList<KWTaskListItemModel> rows{};
    bool isWhole = true; ///< all open tasks are among the rows, and their items
    bool hasTop = true;  ///< at least those that are shown first
    bool isAllCompletedModelsLoadded = true;
    bool hasLaterEvents = false; ///< of a calendar: behind the days that are shown
    int completedCount = 0;      ///< of those that were left out, too

    /// On the thread of the context. Completed, Abandoned and the trash are read in whole days.
    static Result<ListContent> read(const KWListIdentifier &list, const QString &userID,
                                    const ListExtent &extent, ObjectContext &context);

    /// What readAgain() found.
    struct Changes {
        QSet<QString> tasks{};             ///< those that were looked for
        QList<KWTaskListItemModel> rows{}; ///< of those that are in the list, open, and of their items
        bool areInClosedTasks = true;      ///< or in the positions
        bool areNone = false;              ///< the list is as it was
    };
    /// Reads these tasks, the positions and the closed tasks again, on the thread of the context. Only where
    /// isWhole, and not of Completed, Abandoned and the trash.
    Result<Changes> readAgain(const QStringList &taskIDs, const QString &userID, const ListExtent &extent,
                              ObjectContext &context);

    struct Sections {
        QList<KWTaskCategory> categories{};
        ManualOrders manualOrders{};

        bool operator==(const Sections &) const = default;
    };
    /// The rows but those of hidden tasks, cut into sections. Any thread.
    Sections sections(const QSet<QString> &hiddenTasks) const;

private:
    Result<void> readTasks(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                           Connection &connection);
    Result<void> readPinnedTasks(const KWListDataFetcher &fetcher, ListDataRequest request,
                                 Connection &connection);
    Result<void> readCompletedTasks(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                    Connection &connection);
    Result<void> countCompleted(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                Connection &connection);
    qsizetype closedRows() const;
    Result<void> readEvents(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                            ObjectContext &context);
    Result<void> readDays(const KWListDataFetcher &fetcher, ListDataRequest request, Connection &connection);
    Day dayOf(const KWTaskListItemModel &row) const;
    void noteUnloaded(QList<KWTaskCategory> &categories) const;
};
