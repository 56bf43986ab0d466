#pragma once

#include "model/records/KWHabitRecordModel.h"
#include "model/records/ManagedRecord.h"

/// A note on one day of a habit, in a context.
class KWHabitRecord : public ManagedRecord<KWHabitRecordModel> {};
