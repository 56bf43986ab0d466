#pragma once

#include "model/records/KWProjectPinnedSortOrderModel.h"
#include "model/records/ManagedRecord.h"

/// A pinned entry of the sidebar in a context.
class KWProjectPinnedSortOrder : public ManagedRecord<KWProjectPinnedSortOrderModel> {};
