#include "model/store/schemas/Schemas.h"

std::string schemas::closedTasksAndPlaces()
{
    // A closed task without a completion date has a place too: behind all others.
    return "CREATE INDEX closedTasksInOrder ON tasks (coalesce(completionDate, -9223372036854775808)) WHERE "
           "status <> 0 AND isDeleted = 0 AND isTrashed = 0;"
           "DROP INDEX closedTasksByCompletion;"
           "CREATE INDEX taskTagSortOrdersByTag ON taskTagSortOrders (tagName);"
           "CREATE INDEX projectPinnedSortOrdersByList ON projectPinnedSortOrders (userID, listID);";
}
