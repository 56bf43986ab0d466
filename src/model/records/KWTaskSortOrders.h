#pragma once

#include "model/records/KWTaskSortOrderModels.h"
#include "model/records/ManagedRecord.h"

/// The manual positions of tasks inside the groups of lists, in a context.
class KWTaskDueDateSortOrder : public ManagedRecord<KWTaskDueDateSortOrderModel> {};
class KWTaskPrioritySortOrder : public ManagedRecord<KWTaskPrioritySortOrderModel> {};
class KWTaskProjectSortOrder : public ManagedRecord<KWTaskProjectSortOrderModel> {};
class KWTaskTagSortOrder : public ManagedRecord<KWTaskTagSortOrderModel> {};
class KWTaskPinnedSortOrder : public ManagedRecord<KWTaskPinnedSortOrderModel> {};
