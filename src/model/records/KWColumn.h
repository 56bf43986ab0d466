#pragma once

#include "model/records/KWColumnModel.h"
#include "model/records/ManagedRecord.h"

/// A column of a board in a context.
class KWColumn : public ManagedRecord<KWColumnModel> {};
