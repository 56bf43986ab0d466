#pragma once

#include "corvexkit/Result.h"

class KWTask;
class KWTaskCategory;

/// Gives a task that comes from one section into another what that one stands for, and takes from it what the
/// section it leaves stood for. Fails with a sentence where the list it stands for takes no tasks. Completing
/// is not done here: it is more than a field.
Result<void> enterSection(KWTask &task, const KWTaskCategory &from, const KWTaskCategory &to);
