#pragma once

#include <QString>

#include <optional>

/// What a person enters about one day of a habit.
struct HabitDayEdit {
    enum class Mark { None, Done, NotDone, UnAchieved, UndoUnAchieved, Skipped, NotSkipped };

    Mark mark = Mark::None;
    std::optional<double> amount{}; ///< when it is another one
    std::optional<QString> note{};  ///< when it is another one; an empty one goes

    bool isEmpty() const { return mark == Mark::None && !amount && !note; }
};
