#include "model/store/schemas/Schemas.h"

std::string schemas::focusOnCalendar()
{
    return "ALTER TABLE calendarDisplayConfigurations ADD COLUMN showsFocus INTEGER NOT NULL DEFAULT 0";
}
