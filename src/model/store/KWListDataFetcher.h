#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/records/KWListIdentifier.h"
#include "model/store/KWTaskListItemModel.h"
#include "model/store/SqlValue.h"

#include <QList>

#include <optional>

class Connection;

/// Which rows of a list are wanted. Values only: it may cross threads.
struct ListDataRequest {
    QString userID;
    KWListIdentifier selection;
    std::int64_t limit = -1; ///< rows at most, from the top; negative: all
};

/// Reads the rows of a list straight from one query, without managed records.
class KWListDataFetcher {
public:
    explicit KWListDataFetcher(const CXClock &clock) : m_clock(clock) {}

    /// The rows in display order. Open tasks of a list stand in their manual order, those of the smart
    /// lists, folders and tags by date, then priority, then manual order; closed tasks with the latest
    /// first. A selection that names nothing has no rows.
    Result<QList<KWTaskListItemModel>> reloadDataModel(const ListDataRequest &request,
                                                       Connection &connection) const;

    /// How many rows the selection has: the number the sidebar shows. Nothing for a list without one.
    Result<std::optional<int>> count(const ListDataRequest &request, Connection &connection) const;

private:
    struct Query {
        const char *from; // with the index to use: the planner has no statistics to choose by
        std::string where;
        SqlValues values;
        const char *orderBy;
    };
    std::optional<Query> queryFor(const ListDataRequest &request) const;
    Query openTasksBetween(const ListDataRequest &request, std::optional<Day> from,
                           std::optional<Day> until) const;

    const CXClock &m_clock;
};
