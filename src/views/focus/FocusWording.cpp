#include "views/focus/FocusWording.h"

#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

QString counted(int count, const char *one, const char *many)
{
    return (count == 1 ? KWLocalizedString(one) : KWLocalizedString(many)).arg(QLocale{}.toString(count));
}

} // namespace

QString FocusWording::clock(std::int64_t seconds)
{
    const QLocale locale;
    const auto twoDigits = [&locale](std::int64_t number) {
        const QString digits = locale.toString(qlonglong(number));
        return number < 10 ? locale.zeroDigit() + digits : digits;
    };
    seconds = std::max<std::int64_t>(0, seconds);
    const std::int64_t wholeHours = seconds / 3600;
    const QString rest = twoDigits(seconds / 60 % 60) + u':' + twoDigits(seconds % 60);
    return wholeHours == 0 ? rest : locale.toString(qlonglong(wholeHours)) + u':' + rest;
}

QString FocusWording::length(seconds length)
{
    const QLocale locale;
    const auto wholeHours = duration_cast<hours>(length);
    const auto rest = duration_cast<minutes>(length - wholeHours);
    const QString inMinutes = KWLocalizedString("%1m").arg(locale.toString(qlonglong(rest.count())));
    if (wholeHours == 0h) return inMinutes;
    const QString inHours = KWLocalizedString("%1h").arg(locale.toString(qlonglong(wholeHours.count())));
    return rest == 0min ? inHours : inHours + u' ' + inMinutes;
}

QString FocusWording::spokenLength(seconds length)
{
    const auto wholeHours = duration_cast<hours>(length);
    const auto rest = duration_cast<minutes>(length - wholeHours);
    const QString inMinutes = counted(int(rest.count()), "%1 minute", "%1 minutes");
    if (wholeHours == 0h) return inMinutes;
    return counted(int(wholeHours.count()), "%1 hour", "%1 hours") + u' ' + inMinutes;
}

QString FocusWording::pomos(int count) { return counted(count, "%1 Pomo", "%1 Pomos"); }

QString FocusWording::ofTask(const FocusOfTask &focus)
{
    QStringList facts;
    if (focus.estimated.count() > 0)
        facts << KWLocalizedString("%1 of %2").arg(length(focus.focused), length(focus.estimated));
    else if (focus.focused.count() > 0)
        facts << length(focus.focused);
    if (focus.estimatedPomos > 0)
        facts << KWLocalizedString("%1 of %2")
                     .arg(QLocale{}.toString(focus.pomos), pomos(focus.estimatedPomos));
    else if (focus.pomos > 0)
        facts << pomos(focus.pomos);
    return facts.join(u", "_s);
}

QString FocusWording::ofHabit(const FocusOfHabit &focus)
{
    if (focus.inTotal.count() <= 0) return {};
    return KWLocalizedString("%1 focused today, %2 in all").arg(length(focus.today), length(focus.inTotal));
}

QString FocusWording::command(FocusCommand command)
{
    switch (command) {
    case FocusCommand::Start:
        return KWLocalizedString("Start");
    case FocusCommand::Pause:
        return KWLocalizedString("Pause");
    case FocusCommand::Resume:
        return KWLocalizedString("Resume");
    case FocusCommand::Stop:
        return KWLocalizedString("Stop");
    case FocusCommand::Relax:
        return KWLocalizedString("Relax");
    case FocusCommand::Skip:
        return KWLocalizedString("Skip Break");
    case FocusCommand::Exit:
        return KWLocalizedString("Exit");
    }
    return {};
}

QString FocusWording::nothingInParticular() { return KWLocalizedString("Nothing in particular"); }
