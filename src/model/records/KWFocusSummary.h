#pragma once

#include "model/records/KWFocusSummaryModel.h"
#include "model/records/ManagedRecord.h"

/// The focus that one person has spent on a task, in a context.
class KWFocusSummary : public ManagedRecord<KWFocusSummaryModel> {};
