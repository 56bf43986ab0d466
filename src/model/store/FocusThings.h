#pragma once

#include "model/store/DatedThings.h"
#include "model/store/FocusRows.h"

/// Completed focus sessions as timed things that can only be read, each titled by what it was spent on. A
/// session that was spent on tasks of hidden lists alone is left out, and what else it was spent on is not
/// named by them. By their start, on the thread of the context.
Result<std::vector<DatedThing>> readFocusThings(const FocusRowsRequest &request,
                                                const QStringList &hiddenLists, ObjectContext &context);
