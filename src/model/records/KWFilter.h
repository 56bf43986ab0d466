#pragma once

#include "model/records/KWFilterModel.h"
#include "model/records/ManagedRecord.h"

/// A custom filter in a context.
class KWFilter : public ManagedRecord<KWFilterModel> {};
