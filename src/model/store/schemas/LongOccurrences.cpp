#include "model/store/schemas/Schemas.h"

// 86400000 milliseconds are a day.
std::string schemas::longOccurrences()
{
    return "CREATE INDEX longRepeatInstances ON repeatInstances (userID, endDate) WHERE endDate - startDate "
           "> "
           "86400000;";
}
