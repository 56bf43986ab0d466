#pragma once

#include "model/records/KWPomoSettingsModel.h"
#include "model/records/ManagedRecord.h"

/// The focus settings of an account in a context.
class KWPomoSettings : public ManagedRecord<KWPomoSettingsModel> {};
