#pragma once

#include "lists/TaskListRows.h"

#include <QList>

#include <optional>
#include <vector>

/// How to turn one list of rows into another by few steps, rows being the same when their ids are.
/// The steps are carried out in this order, each on the list as the ones before left it.
struct RowPlan {
    struct Range {
        int first;
        int count;
    };
    struct Move {
        int from;
        int to; ///< the row's place after the move, as in QList::move
    };
    std::vector<Range> removals; ///< from the back
    std::vector<Move> moves;
    std::vector<Range> insertions; ///< from the front; `first` is also the place in the new list

    std::size_t stepCount() const { return removals.size() + moves.size() + insertions.size(); }
};

/// Nothing when more than `limit` steps would be needed, and where the two differ by thousands of rows or
/// hold an id twice.
std::optional<RowPlan> planRows(const QList<TaskListRow> &before, const QList<TaskListRow> &after,
                                std::size_t limit);
