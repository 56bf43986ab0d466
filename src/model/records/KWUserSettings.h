#pragma once

#include "model/records/KWUserSettingsModel.h"
#include "model/records/ManagedRecord.h"

#include <algorithm>

/// The settings of one account in a context.
class KWUserSettings : public ManagedRecord<KWUserSettingsModel> {
public:
    /// On which the weeks of that account begin.
    static std::chrono::weekday firstWeekdayOfUser(const QString &userID, ObjectContext &context)
    {
        const int first = ofUser(userID, context).firstWeekday;
        return std::chrono::weekday{unsigned(std::clamp(first, 1, 7) - 1)};
    }

    /// The day that it is for the habits of that account: until an hour of the night yesterday still.
    static Day habitDayOfUser(const QString &userID, ObjectContext &context)
    {
        const int start = std::clamp(ofUser(userID, context).habitDayStart, 0, latestHabitDayStart);
        const LocalTime now = context.clock().localNow();
        return std::chrono::floor<std::chrono::days>(now - std::chrono::hours{start});
    }
    static constexpr int latestHabitDayStart = 6;

private:
    static KWUserSettingsModel ofUser(const QString &userID, ObjectContext &context)
    {
        return context
            .models<KWUserSettings>({.where = "userID = ? AND isDeleted = 0", .values = {userID}, .limit = 1})
            .value(0);
    }
};
