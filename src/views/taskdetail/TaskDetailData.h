#pragma once

#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWTaskModel.h"

#include <QHash>
#include <QList>

/// What the detail shows of a task.
struct TaskDetailData {
    KWTaskModel task;
    QList<KWChecklistItemModel> items; ///< in their order
    QString listName;
    QString listColor;                 ///< "#rrggbb", empty for none
    QHash<QString, QString> tagLabels; ///< by name; a tag without one shows its name

    bool operator==(const TaskDetailData &) const = default;
};
