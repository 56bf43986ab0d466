#pragma once

#include "model/records/KWUserSettingsModel.h"

#include <chrono>

/// The times of day that words such as "morning" stand for, since midnight, and where weeks begin.
struct KWSmartTimeModel {
    std::chrono::minutes morning{std::chrono::hours{9}};
    std::chrono::minutes afternoon{std::chrono::hours{13}};
    std::chrono::minutes evening{std::chrono::hours{17}};
    std::chrono::minutes night{std::chrono::hours{20}};
    int firstWeekday = 1; ///< 1 Sunday … 7 Saturday

    static KWSmartTimeModel ofSettings(const KWUserSettingsModel &settings)
    {
        using std::chrono::minutes;
        return {minutes{settings.smartTimeForMorning}, minutes{settings.smartTimeForAfternoon},
                minutes{settings.smartTimeForEvening}, minutes{settings.smartTimeForNight},
                settings.firstWeekday};
    }

    bool operator==(const KWSmartTimeModel &) const = default;
};
