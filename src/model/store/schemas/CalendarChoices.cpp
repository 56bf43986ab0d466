#include "model/store/schemas/Schemas.h"

std::string schemas::calendarChoices()
{
    return "ALTER TABLE calendarDisplayConfigurations ADD COLUMN hiddenLists TEXT NOT NULL DEFAULT '[]';"
           "ALTER TABLE calendarDisplayConfigurations ADD COLUMN colorBy TEXT NOT NULL DEFAULT 'PROJECT'";
}
