#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <optional>

class ZoneTable;

/// A time zone of the IANA database: a small value, compared by identifier, safe to copy and to ask on
/// any thread. Its rules are read once per process from the system's zone files (RFC 8536) and hold
/// for every year: beyond the years a file lists, its closing rule (section 3.3) goes on for ever.
class CXTimeZone {
public:
    /// How a wall-clock reading relates to instants.
    struct Resolution {
        enum class Kind {
            Unique, ///< it happens once
            Gap,    ///< clocks are set forward over it: it never happens
            Fold,   ///< clocks are set back over it: it happens twice
        };
        Kind kind;
        /// Read with the offset before the transition. In a gap this is the later of the two instants:
        /// the reading moved forward by the length of the gap.
        Instant before;
        /// Read with the offset after the transition. The same as `before` when unique.
        Instant after;
        /// The instant the clocks are set; nothing when unique.
        std::optional<Instant> transition;
    };

    /// UTC.
    CXTimeZone();

    /// The zone of an identifier such as "Europe/Berlin", or nothing when the system knows no such zone.
    /// Remembered for the life of the process. A POSIX rule such as "EST5EDT,M3.2.0,M11.1.0", which TZ
    /// may hold in place of a name, is an identifier too.
    static std::optional<CXTimeZone> named(const QString &identifier);
    static CXTimeZone utc() { return {}; }

    /// Identifier of the zone now in force, read afresh: it follows TZ and a changed system setting.
    /// "UTC" when that names no known zone.
    static QString systemIdentifier();
    static CXTimeZone system();

    QString identifier() const;

    /// Seconds east of Greenwich.
    std::chrono::seconds offsetAt(Instant instant) const;
    LocalTime toLocal(Instant instant) const
    {
        return LocalTime{(instant + offsetAt(instant)).time_since_epoch()};
    }

    Resolution resolve(LocalTime local) const;
    /// Wall-clock readings that follow each other, each of which happens once, all with one offset.
    struct Stretch {
        LocalTime begin;
        LocalTime end; ///< the first reading that no longer belongs to it
        std::chrono::seconds offset;
    };
    /// The whole stretch around `local`, so that one question serves many readings. Nothing in a gap or a
    /// fold.
    std::optional<Stretch> stretchAround(LocalTime local) const;

    /// A reading in a gap moves forward by the gap's length (02:30 becomes 03:30); of a reading that
    /// happens twice, the first counts.
    Instant toInstant(LocalTime local) const { return resolve(local).before; }

    Day dayOf(Instant instant) const { return std::chrono::floor<std::chrono::days>(toLocal(instant)); }
    /// The first instant of `day`, which is not always 00:00. Of a day that the zone skipped as a whole,
    /// the first instant of the day after.
    Instant startOfDay(Day day) const;

    bool operator==(const CXTimeZone &other) const;

private:
    explicit CXTimeZone(const ZoneTable *table) : m_table{table} {}

    const ZoneTable *m_table; // never freed
};
