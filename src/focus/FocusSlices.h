#pragma once

#include "focus/FocusLimits.h"
#include "focus/FocusStretch.h"
#include "focus/KWPomoRunningState.h"

#include <optional>

/// A slice of the Pomo that runs: what was focused on from when to when. The last one is open.
struct FocusSlice {
    KWPomoRunningState state = KWPomoRunningState::foucsing; ///< in which it was opened: that or paused
    FocusTarget target{};                                    ///< none while paused
    Instant startDate{};
    std::optional<Instant> endDate{};

    QString taskID() const { return target.taskID(); }
    QString habitID() const { return target.habitID(); }
    bool operator==(const FocusSlice &) const = default;
};

/// The slices of one Pomo. They follow each other without a gap, and only the last one may be open.
class FocusSlices {
public:
    const QList<FocusSlice> &all() const { return m_slices; }
    bool isEmpty() const { return m_slices.isEmpty(); }
    void clear() { m_slices.clear(); }

    enum class Opening {
        Done,
        /// The time so far was spent on nothing in particular, and the person is to say whether it belongs to
        /// the target: take() or split() follows.
        AskWhetherItBelongs,
    };
    /// Opens a slice at that moment. Another target within the shortest time takes the slice before for
    /// itself; otherwise that one is closed.
    Opening open(KWPomoRunningState state, const FocusTarget &target, Instant date);
    /// The open slice was spent on the target from its start.
    void take(const FocusTarget &target);
    /// The open slice ends at the moment, and the target's begins.
    void split(const FocusTarget &target, Instant date);

    void closeAt(Instant date);
    /// What was spent on a task that is gone was spent on nothing in particular.
    void forgetTasks(const QStringList &taskIDs);

    /// Those that are over by then, the open one up to then.
    QList<FocusStretch> stretches(Instant upTo) const;

private:
    QList<FocusSlice> m_slices;
};
