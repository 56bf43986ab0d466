#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "focus/FocusStatistics.h"

#include <QHash>

struct FocusRow;

/// Adds up the days of a range, in the zone.
class FocusDayTally {
public:
    FocusDayTally(FocusDays range, CXTimeZone zone);

    void add(const FocusRow &row);
    /// A completed Pomo that began then.
    void addPomo(Instant start);
    /// How much of the stretch is in the range.
    std::chrono::milliseconds lengthInRange(const FocusRow &row) const;

    QList<FocusDay> days() const;

private:
    FocusDays m_range;
    CXTimeZone m_zone;
    Instant m_from;
    Instant m_to;
    QList<std::chrono::milliseconds> m_lengths;
    QList<int> m_pomos;
};

/// Adds up shares, session after session.
class FocusShareTally {
public:
    /// What it had of the session: so much in all, of which so much in the period.
    void add(const FocusShare &share, std::chrono::milliseconds length, std::chrono::milliseconds inPeriod);
    /// The session is over; it was a Pomo of the period or was none.
    void endSession(bool isPomo);

    /// The largest first.
    QList<FocusShare> shares() const;

private:
    struct Sum {
        FocusShare share;
        std::chrono::milliseconds ofSession{0};
        std::chrono::milliseconds inPeriod{0};
    };
    QList<Sum> m_sums;
    QHash<QString, qsizetype> m_places; // of the sums
};
