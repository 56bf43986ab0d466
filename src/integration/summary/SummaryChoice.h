#pragma once

#include "corvexkit/time/Instant.h"

#include <QFlags>
#include <QJsonObject>
#include <QStringList>

/// What a person wants in a summary of their work. A plain value.
struct SummaryChoice {
    enum class Range { Today, Yesterday, ThisWeek, LastWeek, ThisMonth, LastMonth, Days };
    enum class Group { ByDay, ByList, ByStatus };
    enum class Status { Completed = 1, Open = 2 };
    Q_DECLARE_FLAGS(Statuses, Status)
    enum class Detail {
        List = 1,
        Tags = 2,
        Date = 4,       ///< of an open task
        Completion = 8, ///< the time of day, or the day, at which it was completed
        Text = 16,      ///< what was written below the title
        FocusTime = 32, ///< spent on it in these days
        Focus = 64,     ///< all that was spent
        Habits = 128,
    };
    Q_DECLARE_FLAGS(Details, Detail)

    Range range = Range::ThisWeek;
    Day first{};              ///< of the range, worked out when it is read
    Day last{};               ///< included
    bool isShortened = false; ///< to mostDays, it would begin earlier
    QStringList listIDs;      ///< every list when empty
    Statuses statuses{Status::Completed, Status::Open};
    Details fields{Detail::List,       Detail::Tags,  Detail::Date,
                   Detail::Completion, Detail::Focus, Detail::Habits};
    Group group = Group::ByDay;

    bool operator==(const SummaryChoice &) const = default;

    static constexpr int mostDays = 3660;

    /// Reads what toJson() writes: {"range": "thisWeek", "from": "2030-05-01", "to": …, "lists": [ids],
    /// "statuses": ["completed", "open"], "fields": ["list", …], "group": "day"}. What is missing, or is none
    /// of these, is as in a new choice; "from" and "to" belong to the range "days", in either order, and are
    /// held to mostDays.
    static SummaryChoice fromJson(const QJsonObject &json, Day today, std::chrono::weekday firstWeekday);
    QJsonObject toJson() const;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(SummaryChoice::Statuses)
Q_DECLARE_OPERATORS_FOR_FLAGS(SummaryChoice::Details)
