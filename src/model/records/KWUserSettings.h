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
        const auto settings = context.models<KWUserSettings>(
            {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .limit = 1});
        return std::chrono::weekday{unsigned(std::clamp(settings.value(0).firstWeekday, 1, 7) - 1)};
    }
};
