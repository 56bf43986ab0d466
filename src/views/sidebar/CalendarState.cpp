#include "views/sidebar/CalendarState.h"

#include "corvexkit/time/CXClock.h"
#include "model/settings/KWLocalizedString.h"
#include "views/wording/DateWording.h"

using namespace Qt::StringLiterals;

QString calendarState(const KWCalSubscriptionModel &calendar, const CXClock &clock)
{
    if (!calendar.lastReadDate) return calendar.failure;
    const QLocale locale;
    const LocalTime time = clock.zone().toLocal(*calendar.lastReadDate);
    const QString day =
        DateWording::relativeDay(clock.zone().dayOf(*calendar.lastReadDate), clock.today(), locale);
    const QString read = KWLocalizedString("Read: %1, %2").arg(day, DateWording::timeOfDay(time, locale));
    return calendar.failure.isEmpty() ? read : read + u" – "_s + calendar.failure;
}
