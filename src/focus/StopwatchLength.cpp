#include "focus/StopwatchLength.h"

#include "model/settings/KWLocalizedString.h"

#include <QLocale>

StopwatchLength StopwatchLength::ofSeconds(double seconds)
{
    const int inMinutes = int(seconds / 60);
    return {.hours = inMinutes / 60, .minutes = inMinutes % 60};
}

QString StopwatchLength::hoursUnit() const
{
    return hours == 1 ? KWLocalizedString("hr") : KWLocalizedString("hrs");
}

QString StopwatchLength::minutesUnit() const
{
    return minutes == 1 ? KWLocalizedString("min") : KWLocalizedString("mins");
}

QString StopwatchLength::text() const
{
    const QLocale locale;
    const QString inHours = KWLocalizedString("%1 %2").arg(locale.toString(hours), hoursUnit());
    const QString inMinutes = KWLocalizedString("%1 %2").arg(locale.toString(minutes), minutesUnit());
    if (hours == 0) return inMinutes;
    return minutes == 0 ? inHours : KWLocalizedString("%1 %2").arg(inHours, inMinutes);
}
