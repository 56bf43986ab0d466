#pragma once

#include "corvexkit/recurrence/NumberSet.h"

#include <chrono>

/// The days of BYDAY, RFC 5545 section 3.3.10: weekdays, each as such or with ordinals within the month
/// or the year. A value without allocation.
class WeekdaySet {
public:
    using Ordinals = OrdinalSet<53>;

    /// Every such weekday.
    void insert(std::chrono::weekday weekday) { m_every.insert(int(weekday.c_encoding())); }
    /// The first is 1, the last -1; 53 at most.
    void insert(std::chrono::weekday weekday, int ordinal)
    {
        m_ordinals[weekday.c_encoding()].insert(ordinal);
        m_withOrdinals.insert(int(weekday.c_encoding()));
    }

    bool isEmpty() const { return m_every.isEmpty() && m_withOrdinals.isEmpty(); }
    bool hasOrdinals() const { return !m_withOrdinals.isEmpty(); }

    /// Weekdays without an ordinal; Sunday is 0.
    NumberSet<0, 6> every() const { return m_every; }
    /// Weekdays that have ordinals, and which.
    NumberSet<0, 6> withOrdinals() const { return m_withOrdinals; }
    const Ordinals &ordinals(int weekday) const { return m_ordinals[std::size_t(weekday)]; }

    bool operator==(const WeekdaySet &) const = default;

private:
    NumberSet<0, 6> m_every;
    NumberSet<0, 6> m_withOrdinals;
    std::array<Ordinals, 7> m_ordinals{};
};
