#pragma once

#include "calendar/ics/IcsDate.h"
#include "model/records/KWCalSubscriptionEventModel.h"

#include <vector>

/// One VEVENT as it stands in the calendar.
struct IcsEvent {
    KWCalSubscriptionEventModel model{}; ///< but for `recurrenceID` and `exDates`
    IcsDate start{};
    std::optional<IcsDate> recurrenceID{};
    std::vector<IcsDate> exDates{};
    struct Additional {
        IcsDate start;
        std::optional<Instant> end{}; ///< nothing for one as long as the event
    };
    std::vector<Additional> additional{}; ///< RDATE
    bool isCancelled = false;

    /// Days and readings in no zone are those of `inForce`. Nothing for an event that has no start. A rule
    /// that cannot be read is left out: the event takes place once.
    static std::optional<IcsEvent> parse(const QByteArray &block, const IcsZones &zones,
                                         const CXTimeZone &inForce);
};
