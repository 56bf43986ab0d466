#pragma once

#include "model/records/KWHabitFocusModel.h"
#include "model/records/ManagedRecord.h"

/// The focus of one day of a habit, in a context.
class KWHabitFocus : public ManagedRecord<KWHabitFocusModel> {};
