#include "model/store/schemas/RecordTable.h"
#include "model/store/schemas/Schemas.h"

std::string schemas::focusOfHabits()
{
    return table("habitFocus", "habitID TEXT NOT NULL REFERENCES habits (sid) ON DELETE CASCADE DEFERRABLE "
                               "INITIALLY DEFERRED, stamp INTEGER NOT NULL, duration INTEGER NOT NULL") +
           "CREATE UNIQUE INDEX habitFocusByDay ON habitFocus (habitID, stamp) WHERE isDeleted = 0;\n"
           "CREATE INDEX focusSlicesByTask ON focusSlices (taskID) WHERE taskID <> '';\n"
           "CREATE INDEX focusSlicesByHabit ON focusSlices (habitID) WHERE habitID <> '';\n";
}
