#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QStringList>

/// The settings of one account as a plain value. `sid` is the user id.
struct KWUserSettingsModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::UserSettings;
    static constexpr const char *tableName = "userSettings";

    int firstWeekday = 1; ///< 1 Sunday … 7 Saturday
    bool showCompleted = true;
    QString defaultListID; ///< empty: the inbox
    QStringList defaultReminderRules{QStringLiteral("TRIGGER:PT0S")};
    QStringList allDayReminders;
    int smartTimeForMorning = 9 * 60; ///< minutes of the day
    int smartTimeForAfternoon = 13 * 60;
    int smartTimeForEvening = 17 * 60;
    int smartTimeForNight = 20 * 60;
    bool isTimeZoneOptionEnabled = false;
    bool showsInCalendar = true; ///< the habits
    bool showsInToday = true;    ///< the habits
    int habitDayStart = 0;       ///< the hour, 0 to 6, until which it is the day before for habits

    bool operator==(const KWUserSettingsModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWUserSettingsModel> =
    synchronized(field("firstWeekday", &KWUserSettingsModel::firstWeekday),
                 field("showCompleted", &KWUserSettingsModel::showCompleted),
                 field("defaultListID", &KWUserSettingsModel::defaultListID, Json{"defaultListId"}),
                 field("defaultReminderRules", &KWUserSettingsModel::defaultReminderRules),
                 field("allDayReminders", &KWUserSettingsModel::allDayReminders),
                 field("smartTimeForMorning", &KWUserSettingsModel::smartTimeForMorning),
                 field("smartTimeForAfternoon", &KWUserSettingsModel::smartTimeForAfternoon),
                 field("smartTimeForEvening", &KWUserSettingsModel::smartTimeForEvening),
                 field("smartTimeForNight", &KWUserSettingsModel::smartTimeForNight),
                 field("isTimeZoneOptionEnabled", &KWUserSettingsModel::isTimeZoneOptionEnabled),
                 field("showsInCalendar", &KWUserSettingsModel::showsInCalendar),
                 field("showsInToday", &KWUserSettingsModel::showsInToday),
                 field("habitDayStart", &KWUserSettingsModel::habitDayStart));
