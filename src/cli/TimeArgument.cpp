#include "cli/TimeArgument.h"

#include "cli/CommandText.h"
#include "corvexkit/time/TimeText.h"

Result<Instant> readTime(const QString &text, const CXTimeZone &zone)
{
    if (const auto local = TimeText::toLocalTime(text)) return zone.toInstant(*local);
    if (const auto instant = TimeText::toInstant(text)) return *instant;
    if (const auto day = TimeText::toDay(text)) return zone.startOfDay(*day);
    return Error{commandText("“%1” is no time such as 2030-05-01, 2030-05-01T09:00 or "
                             "2030-05-01T09:00:00+02:00.")
                     .arg(text)};
}
