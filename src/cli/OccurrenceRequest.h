#pragma once

#include "cli/Invocation.h"
#include "corvexkit/recurrence/CXRecurringObject.h"

/// Which occurrences of what `orvane occurrences` is asked for.
struct OccurrenceRequest {
    CXRecurringObject object;
    Instant from;
    Instant to; ///< included
    std::optional<std::size_t> limit;

    /// From the options of the command; an error names what is wrong with them.
    static Result<OccurrenceRequest> of(const Invocation &invocation, const CXTimeZone &zone);
    /// From a line of standard input, a JSON object. Values that are null are taken as not given, and names
    /// that are none of a request's are passed over.
    static Result<OccurrenceRequest> ofLine(QByteArrayView line, const CXTimeZone &zone);
};
