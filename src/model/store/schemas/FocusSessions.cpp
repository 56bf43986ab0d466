#include "model/store/schemas/Schemas.h"

std::string schemas::focusSessions()
{
    return "CREATE INDEX longPomodoros ON pomodoros (userID, endDate) WHERE endDate - startDate > 86400000";
}
