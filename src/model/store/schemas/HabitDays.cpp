#include "model/store/schemas/Schemas.h"

std::string schemas::habitDays()
{
    return "ALTER TABLE habits ADD COLUMN startStamp INTEGER NOT NULL DEFAULT 0;"
           "CREATE INDEX habitsInOrder ON habits (userID, sortOrder, sid) WHERE isDeleted = 0;";
}
