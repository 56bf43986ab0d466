#pragma once

#include "model/records/KWConstants.h"
#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QStringList>

/// What the calendar of one account shows, as a plain value. `sid` is the user id. Whether it shows habits
/// is among the user settings.
struct KWCalendarDisplayConfigurationModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::CalendarDisplayConfiguration;
    static constexpr const char *tableName = "calendarDisplayConfigurations";

    KWCalendarViewMode viewMode = KWCalendarViewModeWeek;
    bool showsCompleted = true;
    bool showsChecklistItems = true; ///< those with a date of their own
    bool showsRepeats = true;        ///< the later occurrences of what repeats
    bool showsFocus = false;         ///< the completed focus sessions
    bool showsWeekends = true;
    bool showsWeekNumbers = false;
    QStringList hiddenCalendars; ///< ids of the subscribed calendars that are not shown
    QStringList hiddenLists;     ///< ids of the lists whose tasks are not shown
    KWCalendarColorBy colorBy = KWCalendarColorByProject;

    bool operator==(const KWCalendarDisplayConfigurationModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWCalendarDisplayConfigurationModel> =
    synchronized(field("viewMode", &KWCalendarDisplayConfigurationModel::viewMode),
                 field("showsCompleted", &KWCalendarDisplayConfigurationModel::showsCompleted),
                 field("showsChecklistItems", &KWCalendarDisplayConfigurationModel::showsChecklistItems),
                 field("showsRepeats", &KWCalendarDisplayConfigurationModel::showsRepeats),
                 field("showsFocus", &KWCalendarDisplayConfigurationModel::showsFocus),
                 field("showsWeekends", &KWCalendarDisplayConfigurationModel::showsWeekends),
                 field("showsWeekNumbers", &KWCalendarDisplayConfigurationModel::showsWeekNumbers),
                 field("hiddenCalendars", &KWCalendarDisplayConfigurationModel::hiddenCalendars),
                 field("hiddenLists", &KWCalendarDisplayConfigurationModel::hiddenLists),
                 field("colorBy", &KWCalendarDisplayConfigurationModel::colorBy));
