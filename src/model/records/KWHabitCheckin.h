#pragma once

#include "model/records/KWHabitCheckinModel.h"
#include "model/records/ManagedRecord.h"

/// The check-in of a habit on one day, in a context.
class KWHabitCheckin : public ManagedRecord<KWHabitCheckinModel> {};
