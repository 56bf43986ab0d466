#pragma once

#include "model/records/KWFocusSliceModel.h"
#include "model/records/ManagedRecord.h"

/// A stretch of a focus session in a context.
class KWFocusSlice : public ManagedRecord<KWFocusSliceModel> {};
