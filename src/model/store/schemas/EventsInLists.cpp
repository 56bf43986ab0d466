#include "model/store/schemas/Schemas.h"

std::string schemas::eventsInLists()
{
    return "ALTER TABLE listDisplayConfigurations ADD COLUMN showsEvents INTEGER NOT NULL DEFAULT 1;";
}
