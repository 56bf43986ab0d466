#include "model/store/schemas/RecordTable.h"
#include "model/store/schemas/Schemas.h"

std::string schemas::calendarDisplay()
{
    return table("calendarDisplayConfigurations",
                 "viewMode TEXT NOT NULL, showsCompleted INTEGER NOT NULL, showsChecklistItems INTEGER NOT "
                 "NULL, showsRepeats INTEGER NOT NULL, showsWeekends INTEGER NOT NULL, showsWeekNumbers "
                 "INTEGER NOT NULL, hiddenCalendars TEXT NOT NULL");
}
