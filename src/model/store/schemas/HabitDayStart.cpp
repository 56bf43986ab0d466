#include "model/store/schemas/Schemas.h"

std::string schemas::habitDayStart()
{
    return "ALTER TABLE userSettings ADD COLUMN habitDayStart INTEGER NOT NULL DEFAULT 0;";
}
