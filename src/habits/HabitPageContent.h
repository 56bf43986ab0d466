#pragma once

#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"

#include <QList>

#include <array>

/// A habit with its last seven days: today and the six days before it, earliest first.
struct HabitRow {
    KWHabitModel habit;
    std::array<HabitDay, 7> week{};

    bool operator==(const HabitRow &) const = default;

    const HabitDay &today() const { return week.back(); }
    /// Whether it is to be done today still.
    bool isOpenToday() const { return today().isDue && today().state == HabitDayState::Open; }
};

/// Habits of one part of the day, in their manual order.
struct HabitSection {
    QString sectionID;
    QString name; ///< in the language of the interface
    QList<HabitRow> rows{};

    bool operator==(const HabitSection &) const = default;
};

/// All habits of an account. Sections without habits are there, too: they can take some.
struct HabitPageContent {
    Day today{};
    QList<HabitSection> sections{};
    QList<HabitRow> archived{};

    bool operator==(const HabitPageContent &) const = default;

    bool hasHabits() const;
    /// The row of that habit, archived or not; none when it is gone.
    const HabitRow *rowOf(const QString &habitID) const;
};
