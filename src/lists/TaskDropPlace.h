#pragma once

#include <QString>

/// Where tasks go that are dropped, or moved by key, in a list.
struct TaskDropPlace {
    int category = 0;       ///< the index of the section
    QString afterTaskID{};  ///< empty: in front of the others
    QString parentTaskID{}; ///< below that task; empty: below none

    bool operator==(const TaskDropPlace &) const = default;
};
