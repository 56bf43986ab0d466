#pragma once

#include "corvexkit/time/CXTimeZone.h"

#include <libical/ical.h>

class IcsZones;

/// A date of an event as the calendar writes it: a day, or a wall-clock reading. A plain value.
struct IcsDate {
    LocalTime local{};
    bool isDay = false;
    std::optional<CXTimeZone> zone{}; ///< nothing for the zone in force, whichever that is

    /// Nothing for what is no date, or lies outside the years 1 to 9999.
    static std::optional<IcsDate> from(const icaltimetype &time, const QString &zoneName,
                                       const IcsZones &zones);

    Day day() const { return std::chrono::floor<std::chrono::days>(local); }
    /// Of a day its beginning. `inForce` is the zone in force.
    Instant instant(const CXTimeZone &inForce) const;
    /// Later by whole days on the wall clock and then by the rest.
    Instant instantAfter(const icaldurationtype &duration, const CXTimeZone &inForce) const;
};
