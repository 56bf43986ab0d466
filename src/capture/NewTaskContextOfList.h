#pragma once

#include "capture/NewTaskContext.h"
#include "model/records/KWListIdentifier.h"

class CXSmartFilter;
class ObjectContext;
struct CXSmartFilterFrame;

/// Whether tasks are made in that list. Those of some smart lists come by themselves: what was closed,
/// deleted or given to somebody. A subscribed calendar has events alone.
bool takesNewTasks(const KWListIdentifier &list);

/// What a list of the user implies for a task made in it: a list itself, a tag, the day that it stands for
/// (for the next seven days, today), or what a filter asks for.
NewTaskContext newTaskContextOf(const KWListIdentifier &list, const QString &userID, ObjectContext &context);

/// What a task must be to fit the filter, as far as its conditions leave no choice. Of several days today is
/// taken.
NewTaskContext newTaskContextOf(const CXSmartFilter &filter, const CXSmartFilterFrame &frame);
