#include "model/store/schemas/Schemas.h"

std::string schemas::listParts()
{
    return "CREATE INDEX closedTasksByList ON tasks (projectID, coalesce(completionDate, "
           "-9223372036854775808)) WHERE status <> 0 AND isDeleted = 0 AND isTrashed = 0;"
           "CREATE INDEX pinnedTasks ON tasks (projectID) WHERE pinnedDate IS NOT NULL AND status = 0 AND "
           "isDeleted = 0 AND isTrashed = 0;";
}
