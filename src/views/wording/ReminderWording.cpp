#include "views/wording/ReminderWording.h"

#include "model/settings/KWLocalizedString.h"
#include "views/wording/DateWording.h"

using namespace Qt::StringLiterals;

namespace {

using Unit = CXAlarmTrigger::Unit;

QString amount(Unit unit, int value)
{
    const auto words = [value](const char *one, const char *many) {
        return value == 1 ? KWLocalizedString(one) : KWLocalizedString(many).arg(value);
    };
    switch (unit) {
    case Unit::Weeks:
        return words("1 week", "%1 weeks");
    case Unit::Days:
        return words("1 day", "%1 days");
    case Unit::Hours:
        return words("1 hour", "%1 hours");
    case Unit::Minutes:
        return words("1 minute", "%1 minutes");
    case Unit::Seconds:
        break;
    }
    return words("1 second", "%1 seconds");
}

QString allDay(int value, Unit unit, const QString &time)
{
    if (value == 0) return KWLocalizedString("On the day at %1").arg(time);
    if (value == 1 && unit == Unit::Days) return KWLocalizedString("The day before at %1").arg(time);
    return KWLocalizedString("%1 before at %2").arg(amount(unit, value), time);
}

} // namespace

QString ReminderWording::trigger(const CXAlarmTrigger &trigger)
{
    if (!trigger.isValid()) return trigger.representation();
    if (const auto time = trigger.remindTime())
        return allDay(trigger.value(), trigger.unit(), DateWording::timeOfDay(LocalTime{*time}, QLocale{}));
    if (trigger.value() == 0) return KWLocalizedString("On time");
    if (trigger.value() < 0)
        return KWLocalizedString("%1 after").arg(amount(trigger.unit(), -trigger.value()));
    return KWLocalizedString("%1 before").arg(amount(trigger.unit(), trigger.value()));
}

QString ReminderWording::triggers(const std::set<CXAlarmTrigger> &triggers)
{
    if (triggers.empty()) return KWLocalizedString("None");
    if (triggers.size() == 1) return trigger(*triggers.begin());
    return KWLocalizedString("%1 reminders").arg(triggers.size());
}
