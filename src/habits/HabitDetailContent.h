#pragma once

#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"

#include <QList>

#include <optional>

/// What was kept of a habit in some days.
struct HabitFigures {
    int done = 0;      ///< days
    int due = 0;       ///< days that were due and are over, and today once it is done; not the skipped ones
    int doneOfDue = 0; ///< those of them that were done
    double amount = 0; ///< all that was entered

    bool operator==(const HabitFigures &) const = default;

    /// The done days of the due ones in per cent, rounded; none when nothing was due.
    std::optional<int> rate() const;
};

/// A note on a day.
struct HabitNote {
    Day day{};
    QString text;

    bool operator==(const HabitNote &) const = default;
};

/// One habit with a month and the year around it.
struct HabitDetailContent {
    KWHabitModel habit;
    Day today{};
    HabitDay ofToday{};     ///< also when the year is another one
    Day month{};            ///< its first day
    QList<HabitDay> year{}; ///< every day of the year in which the month lies
    HabitFigures ofMonth{};
    HabitFigures ofYear{};
    HabitFigures ofAll{};     ///< since the habit began
    QList<HabitNote> notes{}; ///< of the month, earliest first

    bool operator==(const HabitDetailContent &) const = default;

    /// The days of the month.
    QList<HabitDay> monthDays() const;
};
