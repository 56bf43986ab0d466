#include "model/store/schemas/Schemas.h"

std::string schemas::taskQueries()
{
    return "CREATE INDEX repeatingTasks ON tasks (projectID) WHERE repeatRule <> '' AND status = 0 AND "
           "isDeleted = 0 AND isTrashed = 0;"
           "CREATE INDEX openChecklistItemsByDate ON checklistItems (startDate) WHERE status = 0 AND "
           "isDeleted = 0 AND startDate IS NOT NULL;"
           "CREATE INDEX closedTasksByDate ON tasks (startDate) WHERE status <> 0 AND isDeleted = 0 AND "
           "isTrashed = 0 AND startDate IS NOT NULL;"
           "CREATE INDEX tasksByEnd ON tasks (endDate, startDate) WHERE endDate IS NOT NULL AND isDeleted = "
           "0 "
           "AND isTrashed = 0;"
           // In the order of rows, so that the top of a long list needs no sorting.
           "CREATE INDEX openTasksInOrder ON tasks (startDate, priority DESC, sortOrder, id, projectID, "
           "endDate, assignee) WHERE status = 0 AND isDeleted = 0 AND isTrashed = 0;"
           "DROP INDEX openTasksByDate;";
}
