#pragma once

#include "focus/FocusStretch.h"
#include "model/records/KWConstants.h"

class ObjectContext;
struct KWUserModel;

/// What one task or habit has of a session. Negative numbers take away what an earlier one gave.
struct FocusCredit {
    FocusTarget target{};
    std::int64_t seconds = 0; ///< rounded to the nearest
    int pomos = 0;            ///< of tasks

    bool operator==(const FocusCredit &) const = default;
};

/// What each task and habit has of these stretches, pauses left out, in the order in which they first come.
/// A completed Pomo counts as one for each task that has enough of it.
QList<FocusCredit> creditsOf(const QList<FocusStretch> &stretches, KWFocusType type, KWPomoStatus status);

/// The session that credits come from.
struct FocusCreditSource {
    KWFocusType type = KWFocusTypePomo;
    KWPomoStatus status = KWPomoStatusCompleted;
    Instant startDate{}; ///< decides on the day of a habit
};

/// Adds them to the tasks and habits in the context. Those that are gone are passed over, and so is an open
/// task when the session was given up.
void applyCredits(const QList<FocusCredit> &credits, const FocusCreditSource &source, const KWUserModel &user,
                  ObjectContext &context);
