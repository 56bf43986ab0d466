#pragma once

#include "model/records/KWUserSettingsModel.h"
#include "model/records/ManagedRecord.h"

/// The settings of one account in a context.
class KWUserSettings : public ManagedRecord<KWUserSettingsModel> {
public:
    /// Whether tasks may have a time zone of their own.
    void updateTimeZoneOptionEnable(bool isEnabled)
    {
        set(&KWUserSettingsModel::isTimeZoneOptionEnabled, isEnabled);
    }
};
