#pragma once

#include "corvexkit/filter/CXSmartFilter.h"
#include "corvexkit/time/CXClock.h"
#include "model/store/ListDataRequest.h"
#include "model/store/SqlValue.h"

#include <string>

class Connection;

/// The tasks of a list as a query over `tasks t`, or their checklist items as one over what stands for it.
struct ListQuery {
    const char *from; ///< with the index to use: the planner has no statistics to choose by
    std::string where;
    SqlValues values;
    std::string orderBy;

    /// How many tasks have the words of the condition. Few are looked up; where they are many, the list is
    /// walked in its order until enough of them were met; where most of its first tasks have them, these are
    /// read instead of the index.
    enum class WordHits { Few, Many, Most };
    static WordHits wordHits(const ListDataRequest &request, const CXClock &clock,
                             Connection &connection); // throws

    /// Nothing for a selection that names nothing, and for a filter: see ofFilter().
    static std::optional<ListQuery> ofRequest(const ListDataRequest &request, const CXClock &clock,
                                              WordHits wordHits = WordHits::Few);
    /// The checklist items among the rows, see DatedItems.h; nothing where there are none to be.
    static std::optional<ListQuery> ofChecklistItems(const ListDataRequest &request, const CXClock &clock);
    /// The later occurrences among the rows, see DatedItems.h; nothing where there are none to be.
    static std::optional<ListQuery> ofOccurrences(const ListDataRequest &request, const CXClock &clock);
    /// The open tasks of the user that the filter fits.
    static ListQuery ofFilter(const CXSmartFilter &filter, const CXSmartFilterFrame &frame,
                              const QString &userID);
    static ListQuery ofCompletedTasks(const CompletedTasksRequest &request);

    ListQuery &also(const std::string &condition, const SqlValues &more = {});
    /// Asks for what the condition asks, too.
    ListQuery &narrow(const ListCondition &condition, const CXClock &clock, WordHits wordHits);
    /// Asks for what the rest of the request asks: its condition, its order, closed tasks.
    ListQuery &refine(const ListDataRequest &request, const CXClock &clock, WordHits wordHits);
    /// Found by the ids of tasks, not by walking an index.
    ListQuery &onlyTasks(const QStringList &taskIDs);
    /// How many tasks there are. Throws SQLite::Exception.
    int count(Connection &connection) const;

private:
    void turnToClosed(const ListDataRequest &request, const CXClock &clock);
};
