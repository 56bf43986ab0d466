#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "corvexkit/time/ZoneRule.h"

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

    const QString &identifier() const { return identifier_; }
    std::chrono::seconds offsetAt(Instant instant) const;
    CXTimeZone::Resolution resolve(LocalTime local) const;

private:
    void append(const ZoneTransition &transition);
    std::int64_t withinTable(std::int64_t second) const;

    QString identifier_;
    // Apart, so that a search touches keys alone. In seconds since the epoch.
    std::vector<std::int64_t> starts_;      // of the transitions
    std::vector<std::int64_t> localStarts_; // the first local second that is skipped or repeated
    std::vector<std::int32_t> offsets_;     // one more: offsets_[i] holds before transition i
    std::int64_t repeatsAfter_;             // from here the table repeats every 400 years
};
