#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWTaskModel.h"

/// A repeating task at another one of its occurrences; docs/repeating.md has the rules with examples.
struct TaskRepetition {
    Instant startDate;
    std::optional<Instant> endDate;
    /// With what is left of its COUNT, and with what it took from the first start where the next start no
    /// longer says it.
    QString repeatRule;
    /// The zone in which the task repeats, and how far the wall clock goes on there.
    CXTimeZone zone;
    std::chrono::milliseconds step;
    CXTimeZone localZone; ///< the one in force, in which days begin

    struct Now {
        Instant instant;
        CXTimeZone zone;
        std::chrono::weekday firstWeekday;
    };
    /// The zone by whose wall clock a task repeats.
    static CXTimeZone zoneOf(const KWTaskModel &task, const CXTimeZone &local);
    /// Where the task goes when its occurrence is completed or abandoned. Nothing when it does not repeat,
    /// has no date, or this was the last time.
    static std::optional<TaskRepetition> next(const KWTaskModel &task, const Now &now);
    /// A later occurrence, by its start. Nothing when the task has none there.
    static std::optional<TaskRepetition> at(const KWTaskModel &task, Instant occurrence, const Now &now);
    /// The rule of the task when it ends with that occurrence, or with the one before it; empty when the
    /// first one alone is left.
    enum class LastOne { This, TheOneBefore };
    static QString ruleEndingAt(const KWTaskModel &task, Instant occurrence, LastOne last, const Now &now);

    /// The date of something that goes along with the task: as far by the wall clock, or as many days when
    /// it is all-day.
    Instant movedAlong(Instant date, bool isAllDay) const;
};
