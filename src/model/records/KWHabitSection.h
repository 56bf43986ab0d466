#pragma once

#include "model/records/KWHabitSectionModel.h"
#include "model/records/ManagedRecord.h"

/// A section of the habits in a context.
class KWHabitSection : public ManagedRecord<KWHabitSectionModel> {};
