#pragma once

#include "model/records/KWRepeatInstanceFetchFlagModel.h"
#include "model/records/ManagedRecord.h"

/// What was generated of a repeating task or event, in a context.
class KWRepeatInstanceFetchFlag : public ManagedRecord<KWRepeatInstanceFetchFlagModel> {};
