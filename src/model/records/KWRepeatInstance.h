#pragma once

#include "model/records/KWRepeatInstanceModel.h"
#include "model/records/ManagedRecord.h"

/// A generated occurrence in a context.
class KWRepeatInstance : public ManagedRecord<KWRepeatInstanceModel> {};
