#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <initializer_list>

/// Carries dates from the wall clocks of one zone to those of another: the day and the time of day stay,
/// the instants change. What a wall clock never shows, or shows twice, is read as CXTimeZone says.
class ZoneMove {
public:
    ZoneMove(CXTimeZone from, CXTimeZone to) : m_from(from), m_to(to) {}

    /// The zone in which a date without a time was set: the first of `candidates` in which a day begins at
    /// that instant, else the first of all.
    static CXTimeZone zoneOfDay(Instant date, std::initializer_list<CXTimeZone> candidates);

    /// A date without a time.
    Instant day(Instant date) const { return m_to.startOfDay(m_from.dayOf(date)); }
    /// The exclusive end of a range of days that began at `start` before the move; the range keeps a day at
    /// least.
    Instant endOfDays(Instant end, Instant start) const;
    Instant time(Instant date) const { return m_to.toInstant(m_from.toLocal(date)); }

private:
    CXTimeZone m_from;
    CXTimeZone m_to;
};
