#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "corvexkit/time/ZoneRule.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

/// All offsets of one zone, ready for quick questions. Immutable.
class ZoneTable {
public:
    /// One offset for ever.
    ZoneTable(QString identifier, std::chrono::seconds offset);
    /// `transitions` ascending; after the last of them `rule` goes on. Without transitions, from 1900.
    ZoneTable(QString identifier, std::chrono::seconds firstOffset, std::vector<ZoneTransition> transitions,
              const std::optional<ZoneRule> &rule);

    /// From the bytes of a zone file, or nothing when they are none.
    static std::unique_ptr<ZoneTable> fromFile(QString identifier, std::string_view bytes);

    const QString &identifier() const { return m_identifier; }
    std::chrono::seconds offsetAt(Instant instant) const;
    CXTimeZone::Resolution resolve(LocalTime local) const;
    std::optional<CXTimeZone::Stretch> stretchAround(LocalTime local) const;

private:
    void append(const ZoneTransition &transition);
    // The local second at which the clock, set at transition `index`, has settled.
    std::int64_t settledAfter(std::size_t index) const
    {
        return m_starts[index] + std::max(m_offsets[index], m_offsets[index + 1]);
    }
    std::int64_t withinTable(std::int64_t second) const;

    QString m_identifier;
    // Apart, so that a search touches keys alone. In seconds since the epoch.
    std::vector<std::int64_t> m_starts;      // of the transitions
    std::vector<std::int64_t> m_localStarts; // the first local second that is skipped or repeated
    std::vector<std::int32_t> m_offsets;     // one more: m_offsets[i] holds before transition i
    std::int64_t m_repeatsAfter;             // from here the table repeats every 400 years
};
