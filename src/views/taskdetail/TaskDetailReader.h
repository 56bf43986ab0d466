#pragma once

#include "views/taskdetail/TaskDetailData.h"

#include <optional>

class KWTaskEditor;
class OrvaneKit;

/// What the detail shows of that task, as it is now; nothing when there is no such task. Main thread.
std::optional<TaskDetailData> readTaskDetail(const QString &taskID, const KWTaskEditor &editor,
                                             OrvaneKit &kit);
