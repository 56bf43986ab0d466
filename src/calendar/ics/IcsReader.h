#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWCalSubscriptionEventModel.h"

#include <QByteArray>

#include <vector>

/// A calendar as it was read. A plain value.
struct IcsCalendar {
    QString name;  ///< empty for none
    QString color; ///< "#rrggbb"; empty for none
    /// Without ids, account and calendar. Each stands for itself: occurrences that are described on their
    /// own, and additional dates, are left out of what repeats, and one that is left out is never the first.
    std::vector<KWCalSubscriptionEventModel> events{};
    int leftOut = 0; ///< events that could not be read
};

/// Reads calendars in the format of RFC 5545.
class IcsReader {
public:
    /// How often all events together may repeat on one day.
    static constexpr std::int64_t mostOccurrencesADay = 10'000;

    /// A text that is no calendar, that breaks off, is too large or repeats too often is an error. Days and
    /// times in no zone are those of `inForce`. Any thread.
    static Result<IcsCalendar> read(const QByteArray &text, const CXTimeZone &inForce);
};
