#pragma once

#include "focus/FocusRecordWriter.h"
#include "support/TaskBuilder.h"

#include <memory>

/// An account with things to focus on, by letter: A and B are tasks tagged "x" and "y" (A) or not at all (B),
/// A in the list Work and B in the inbox; D is a task like A that was deleted, G one of a list that is gone
/// with it; H is a habit.
struct FocusFixture {
    explicit FocusFixture(const char *localTime = "2030-05-01 12:00", const char *zone = "Europe/Berlin");

    StoreFixture store;

    /// Nothing in particular for any other text.
    FocusTarget target(const QString &letter) const { return m_targets.value(letter); }
    /// Stretches behind each other, "A:10+pause:5+B:10", in minutes.
    QList<FocusStretch> stretches(Instant start, const QString &text) const;
    /// Stores such a session and gives its credits; its id. "abandoned" is a Pomo that was given up.
    QString session(const QString &type, Instant start, const QString &stretches);
    /// After sessions were stored: D and G go.
    void deleteWhatIsGone();

    /// "1 Pomos, 1500 and 0 s" of a task, of Pomos and by stopwatch; "none" without a summary.
    QString summaryOf(const QString &letter);
    /// Seconds of a day of the habit.
    std::int64_t secondsOfHabit(int stamp);

private:
    QHash<QString, FocusTarget> m_targets;
    QString m_goneList;
};
