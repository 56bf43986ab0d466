#pragma once

#include "model/records/KWUserSettingsModel.h"
#include "model/records/ManagedRecord.h"

/// The settings of one account in a context.
class KWUserSettings : public ManagedRecord<KWUserSettingsModel> {};
