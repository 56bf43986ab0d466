#pragma once

#include "capture/NewTaskContext.h"
#include "model/records/KWListIdentifier.h"

class CXClock;

/// Whether tasks are made in that list. Those of some smart lists come by themselves: what was closed,
/// deleted or given to somebody.
bool takesNewTasks(const KWListIdentifier &list);

/// What a list implies for a task made in it: a list itself, a tag, or the day that it stands for (for
/// the next seven days, today).
NewTaskContext newTaskContextOf(const KWListIdentifier &list, const CXClock &clock);
