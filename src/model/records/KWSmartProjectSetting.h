#pragma once

#include "model/records/KWSmartProjectSettingModel.h"
#include "model/records/ManagedRecord.h"

/// How an account shows one smart list, in a context.
class KWSmartProjectSetting : public ManagedRecord<KWSmartProjectSettingModel> {};
