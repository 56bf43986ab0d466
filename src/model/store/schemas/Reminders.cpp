#include "model/store/schemas/Schemas.h"

std::string schemas::reminders()
{
    return "ALTER TABLE checklistItems ADD COLUMN remindTime INTEGER;"
           "CREATE INDEX tasksByRemindTime ON tasks (remindTime) WHERE remindTime IS NOT NULL AND status = 0 "
           "AND isDeleted = 0 AND isTrashed = 0;"
           "CREATE INDEX checklistItemsByRemindTime ON checklistItems (remindTime) WHERE remindTime IS NOT "
           "NULL AND status = 0 AND isDeleted = 0;";
}
