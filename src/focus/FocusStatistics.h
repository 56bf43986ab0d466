#pragma once

#include "focus/FocusPeriod.h"

#include <QList>
#include <QString>

/// The focus of one day. A session that spans midnight gives each day its part; it is a Pomo of the day on
/// which it began.
struct FocusDay {
    Day day{};
    std::chrono::seconds focused{0};
    int pomos = 0;

    bool operator==(const FocusDay &) const = default;
};

/// What one list or tag has of the focus of a period.
struct FocusShare {
    enum class Kind {
        Named,   ///< a list or tag
        Without, ///< what was in none
        Habits,
    };

    Kind kind = Kind::Named;
    QString id{};    ///< of a list that there is, or the name of a tag; empty for what is gone
    QString name{};  ///< in the language of the interface
    QString color{}; ///< "#rrggbb", empty for none
    std::chrono::seconds focused{0};
    int pomos = 0; ///< those in which it had enough, as a task has to have

    bool operator==(const FocusShare &) const = default;
};

/// The focus of a period. Pauses never count.
struct FocusStatistics {
    FocusPeriod period{};
    FocusDays range{};
    std::chrono::seconds focused{0};
    int pomos = 0;
    QList<FocusDay> days{};    ///< each of the period, also those to come
    QList<FocusShare> lists{}; ///< the largest first
    QList<FocusShare> tags{};  ///< the same; what has several counts for each

    bool operator==(const FocusStatistics &) const = default;
};
