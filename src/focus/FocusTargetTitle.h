#pragma once

#include "focus/FocusTarget.h"

class ObjectContext;

/// The title of a task, the name of a habit; empty for nothing and for what is gone.
QString titleOf(const FocusTarget &target, ObjectContext &context);
/// Whether there is such a task, neither deleted nor in the trash, or such a habit, neither deleted nor
/// archived.
bool exists(const FocusTarget &target, ObjectContext &context);
