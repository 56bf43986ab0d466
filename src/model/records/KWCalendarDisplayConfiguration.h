#pragma once

#include "model/records/KWCalendarDisplayConfigurationModel.h"
#include "model/records/ManagedRecord.h"

/// What the calendar of an account shows, in a context.
class KWCalendarDisplayConfiguration : public ManagedRecord<KWCalendarDisplayConfigurationModel> {};
