#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// The focus settings of one account as a plain value. `sid` is the user id. Lengths are minutes.
struct KWPomoSettingsModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::PomoSettings;
    static constexpr const char *tableName = "pomoSettings";

    int pomoDuration = 25;
    int shortBreakDuration = 5;
    int longBreakDuration = 15;
    int longBreakInterval = 4; ///< Pomos to a long break, above 0
    bool isAutoPomo = false;
    bool isAutoBreak = false;
    int autoPomodoroCycle = 4; ///< Pomos of an automatic chain
    bool isPomoEnabled = true;
    int dailyPomoGoal = 0;
    int dailyFocusGoal = 0; ///< minutes

    bool operator==(const KWPomoSettingsModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWPomoSettingsModel> =
    synchronized(field("pomoDuration", &KWPomoSettingsModel::pomoDuration),
                 field("shortBreakDuration", &KWPomoSettingsModel::shortBreakDuration),
                 field("longBreakDuration", &KWPomoSettingsModel::longBreakDuration),
                 field("longBreakInterval", &KWPomoSettingsModel::longBreakInterval),
                 field("isAutoPomo", &KWPomoSettingsModel::isAutoPomo),
                 field("isAutoBreak", &KWPomoSettingsModel::isAutoBreak),
                 field("autoPomodoroCycle", &KWPomoSettingsModel::autoPomodoroCycle),
                 field("isPomoEnabled", &KWPomoSettingsModel::isPomoEnabled),
                 field("dailyPomoGoal", &KWPomoSettingsModel::dailyPomoGoal),
                 field("dailyFocusGoal", &KWPomoSettingsModel::dailyFocusGoal));
