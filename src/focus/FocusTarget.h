#pragma once

#include <QString>

/// What a person focuses on: a task, a habit or nothing in particular.
struct FocusTarget {
    enum class Kind { None, Task, Habit };

    Kind kind = Kind::None;
    QString entityID{}; ///< empty for none

    static FocusTarget task(const QString &taskID) { return {.kind = Kind::Task, .entityID = taskID}; }
    static FocusTarget habit(const QString &habitID) { return {.kind = Kind::Habit, .entityID = habitID}; }

    bool isNone() const { return kind == Kind::None; }
    QString taskID() const { return kind == Kind::Task ? entityID : QString{}; }
    QString habitID() const { return kind == Kind::Habit ? entityID : QString{}; }

    bool operator==(const FocusTarget &) const = default;

    /// "task:ID", "habit:ID" or nothing, and back; a text that is none of them is nothing in particular.
    QString text() const;
    static FocusTarget fromText(QStringView text);
};
