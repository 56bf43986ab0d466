#pragma once

#include "lists/TaskDropPlace.h"
#include "lists/TaskListRows.h"

#include <QSet>

#include <optional>

// Where tasks of a list go that are dragged over its rows or moved by key. Pure.

struct DropTarget {
    enum class Mark {
        Above, ///< a line above the row
        Below, ///< a line below the row
        Onto,  ///< the row itself: below the task, or at the top of the section
    };

    TaskDropPlace place;
    Mark mark;
    int row;       ///< which `mark` belongs to
    int depth = 0; ///< of the line

    bool operator==(const DropTarget &) const = default;
};

/// For a pointer over `row`, at `share` of its height from 0 to 1: between two rows near its edges, below
/// the task in its middle. `moving` are the tasks that go there; nothing can be put behind those. Nothing
/// where nothing can be dropped.
std::optional<DropTarget> dropTargetAt(const QList<TaskListRow> &rows, int row, double share,
                                       const QSet<QString> &moving);

enum class KeyMove {
    Up,   ///< before the task above, at the top of a section to the end of the one above
    Down, ///< the other way
};

/// Where the tasks `moving`, in the order of the rows, go by a key; nothing where they cannot.
std::optional<TaskDropPlace> placeByKey(const QList<TaskListRow> &rows, const QStringList &moving,
                                        KeyMove move);
