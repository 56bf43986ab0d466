#pragma once

#include "model/records/KWHabitModel.h"
#include "model/records/ManagedRecord.h"

/// A habit in a context.
class KWHabit : public ManagedRecord<KWHabitModel> {};
