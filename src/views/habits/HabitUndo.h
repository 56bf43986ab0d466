#pragma once

#include "model/store/UndoToken.h"

#include <functional>

/// Several saves that are one for the person. Main thread.
namespace HabitUndo {

bool hasAny(const QList<UndoToken> &done);

/// Takes all of them back, the last one first; what cannot be is told to `fail`. The manager outlives it.
std::function<void()> undoing(const QList<UndoToken> &done, KWCoreDataManager &manager,
                              const std::function<void(const QString &)> &fail);

} // namespace HabitUndo
