#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/store/KWTaskListItemModel.h"
#include "model/store/ListDataRequest.h"

#include <QList>

#include <array>

class Connection;

/// Reads the rows of a list straight from one query, without managed records.
class KWListDataFetcher {
public:
    explicit KWListDataFetcher(const CXClock &clock) : m_clock(clock) {}

    /// The rows in display order. Open tasks of a list stand in their manual order, those of the smart
    /// lists, folders and tags by date, then priority, then manual order; closed tasks with the latest
    /// first, deleted ones with the last changed first. A selection that names nothing has no rows.
    /// Checklist items follow behind the tasks, and later occurrences and events behind these, in the same
    /// order; the limit is for each of the four. Closed tasks that are included come last. A subscribed
    /// calendar has its events.
    Result<QList<KWTaskListItemModel>> reloadDataModel(const ListDataRequest &request,
                                                       Connection &connection) const;

    /// The quadrants by priority, highest first: see KWTaskPriorities.
    using Matrix = std::array<QList<KWTaskListItemModel>, KWTaskPriorities.size()>;
    /// The open tasks that the smart list All shows, by quadrant; the limit is for each. The selection
    /// of the request and its priority are not looked at.
    Result<Matrix> reloadDataModelForMatrix(const ListDataRequest &request, Connection &connection) const;

    /// The rows of these tasks, in their order; without those that are gone.
    Result<QList<KWTaskListItemModel>> generateModels(const QStringList &taskIDs,
                                                      Connection &connection) const;

    Result<QList<KWTaskListItemModel>> completedTasks(const CompletedTasksRequest &request,
                                                      Connection &connection) const;

    /// How many rows there are, without the closed tasks that are included and without later occurrences and
    /// events: one task is one thing to do. The limit is not looked at.
    Result<int> count(const ListDataRequest &request, Connection &connection) const;
    /// Whether the task is among the rows of the selection.
    Result<bool> contains(const QString &taskID, const ListDataRequest &request,
                          Connection &connection) const;

private:
    const CXClock &m_clock;
};
