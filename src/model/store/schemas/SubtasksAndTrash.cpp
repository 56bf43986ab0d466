#include "model/store/schemas/Schemas.h"

std::string schemas::subtasksAndTrash()
{
    return "CREATE INDEX tasksByParent ON tasks (parentId) WHERE parentId <> '';"
           "CREATE INDEX trashedTasks ON tasks (userID, modifiedTime, id) WHERE isTrashed = 1 AND isDeleted "
           "= 0;";
}
