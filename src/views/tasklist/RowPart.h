#pragma once

/// What of a row of the task list the pointer is on.
enum class RowPart {
    None, ///< the row itself, that is: its task
    Checkbox,
    Triangle, ///< folds what is below a task
    Header,   ///< of a section: folds it
    Postpone,
    Add,
    More,
    LoadMore,
};
