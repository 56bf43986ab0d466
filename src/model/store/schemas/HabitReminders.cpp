#include "model/store/schemas/Schemas.h"

std::string schemas::habitReminders()
{
    return "ALTER TABLE habits ADD COLUMN remindTime INTEGER;"
           "ALTER TABLE habits ADD COLUMN snoozedRemindDate INTEGER;"
           "CREATE INDEX habitsByRemindTime ON habits (remindTime) WHERE remindTime IS NOT NULL AND "
           "isArchived = 0 AND isDeleted = 0;";
}
