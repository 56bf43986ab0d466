#pragma once

#include "model/records/KWListDisplayConfigurationModel.h"
#include "model/records/ManagedRecord.h"

/// How an account shows one list, in a context.
class KWListDisplayConfiguration : public ManagedRecord<KWListDisplayConfigurationModel> {};
