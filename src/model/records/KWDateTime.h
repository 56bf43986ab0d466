#pragma once

#include "corvexkit/time/Instant.h"

/// A date that may have a time. Without one, `date` is the midnight that begins the day.
struct KWDateTime {
    Instant date;
    bool hasTime = true;

    static KWDateTime dateTimeWithDate(Instant date, bool hasTime) { return {date, hasTime}; }
    bool operator==(const KWDateTime &) const = default;
};
