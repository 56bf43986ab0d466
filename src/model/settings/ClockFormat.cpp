#include "model/settings/ClockFormat.h"

#include <QTime>

using namespace Qt::StringLiterals;

namespace {

std::optional<bool> &choice()
{
    static std::optional<bool> is24Hour;
    return is24Hour;
}

} // namespace

void ClockFormat::choose(const QString &format)
{
    choice() = format == u"24" ? std::optional{true} : format == u"12" ? std::optional{false} : std::nullopt;
}

std::optional<bool> ClockFormat::chosen24Hour() { return choice(); }

QString ClockFormat::pattern(const QLocale &locale)
{
    // The plain locale's own format has seconds.
    const bool isPlain = locale.language() == QLocale::C;
    if (!choice() && !isPlain) return locale.timeFormat(QLocale::ShortFormat);
    return choice().value_or(true) ? u"HH:mm"_s : u"h:mm AP"_s;
}

QString ClockFormat::timeOfDay(std::chrono::milliseconds sinceMidnight, const QLocale &locale)
{
    return locale.toString(QTime::fromMSecsSinceStartOfDay(int(sinceMidnight.count())), pattern(locale));
}
