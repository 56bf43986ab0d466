#include "model/settings/ClockFormat.h"

#include <QTime>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

using Choice = std::optional<bool>;

std::atomic<Choice> &choice()
{
    static std::atomic<Choice> is24Hour;
    return is24Hour;
}

} // namespace

void ClockFormat::choose(const QString &format)
{
    choice() = format == u"24" ? Choice{true} : format == u"12" ? Choice{false} : Choice{};
}

std::optional<bool> ClockFormat::chosen24Hour() { return choice().load(); }

QString ClockFormat::pattern(const QLocale &locale)
{
    // The plain locale's own format has seconds.
    const bool isPlain = locale.language() == QLocale::C;
    const Choice chosen = chosen24Hour();
    if (!chosen && !isPlain) return locale.timeFormat(QLocale::ShortFormat);
    return chosen.value_or(true) ? u"HH:mm"_s : u"h:mm AP"_s;
}

QString ClockFormat::timeOfDay(std::chrono::milliseconds sinceMidnight, const QLocale &locale)
{
    return locale.toString(QTime::fromMSecsSinceStartOfDay(int(sinceMidnight.count())), pattern(locale));
}
