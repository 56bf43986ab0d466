#include "views/datepicker/ScheduleSurroundings.h"

#include "capture/KWSmartTimeModel.h"
#include "capture/RepeatPhrase.h"
#include "model/OrvaneKit.h"

SchedulePicker::Surroundings scheduleSurroundings(OrvaneKit &kit)
{
    const KWUserSettingsModel &settings = kit.account().userSettings();
    const KWTaskDefaultConfiguration defaults = kit.account().taskDefaultConfiguration();
    return {.today = kit.clock().today(),
            .zone = kit.clock().zone(),
            .firstWeekday = settings.firstWeekday,
            .choosesZones = settings.isTimeZoneOptionEnabled,
            .reminders = defaults.reminders,
            .allDayReminders = defaults.allDayReminders,
            .readRule = [&clock = kit.clock(), times = KWSmartTimeModel::ofSettings(settings),
                         defaults](const QString &typed) {
                return repeatRuleIn(typed, clock.now(), times, {clock.zone(), defaults});
            }};
}
