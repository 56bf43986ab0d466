#include "model/store/schemas/Schemas.h"

std::string schemas::repeatSources()
{
    return "ALTER TABLE tasks ADD COLUMN repeatTaskID TEXT NOT NULL DEFAULT '';"
           "CREATE INDEX tasksByRepeatSource ON tasks (repeatTaskID, completionDate) WHERE repeatTaskID <> "
           "'';";
}
