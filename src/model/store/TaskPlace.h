#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QList>
#include <QStringList>

#include <optional>

struct KWTaskModel;

/// What decides in which lists and filters an open task is counted.
struct TaskPlace {
    QString projectID;
    QStringList tags;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::int64_t assignee;
    KWTaskPriority priority;
    KWTaskKind kind;
    bool repeats;
    QStringList texts; ///< those that a search looks at

    /// Nothing for a task that is closed, deleted or in the trash: no list counts it.
    static std::optional<TaskPlace> of(const KWTaskModel &task);

    bool operator==(const TaskPlace &) const = default;
};

/// A task that a save took from one place to another; from nowhere when it is new or open again, to
/// nowhere when it is closed or gone.
struct TaskMove {
    std::optional<TaskPlace> from;
    std::optional<TaskPlace> to;
};
