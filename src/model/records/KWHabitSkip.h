#pragma once

#include "model/records/KWHabitSkipModel.h"
#include "model/records/ManagedRecord.h"

/// A skipped day of a habit in a context.
class KWHabitSkip : public ManagedRecord<KWHabitSkipModel> {};
