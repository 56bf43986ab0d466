#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/store/ListDataRequest.h"
#include "model/store/SqlValue.h"

#include <string>

/// The tasks of a list as a query over `tasks t`.
struct ListQuery {
    const char *from; ///< with the index to use: the planner has no statistics to choose by
    std::string where;
    SqlValues values;
    std::string orderBy;

    /// Nothing for a selection that names nothing.
    static std::optional<ListQuery> ofRequest(const ListDataRequest &request, const CXClock &clock);
    static ListQuery ofCompletedTasks(const CompletedTasksRequest &request);

    ListQuery &also(const std::string &condition, const SqlValues &more = {});
    /// Asks for what the condition asks, too.
    ListQuery &narrow(const ListCondition &condition, const CXClock &clock);
    /// Found by the id of one task, not by walking an index.
    ListQuery &onlyTask(const QString &taskID);
};
