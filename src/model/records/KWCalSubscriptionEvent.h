#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWCalSubscriptionEventModel.h"
#include "model/records/ManagedRecord.h"

#include <vector>

/// An event of a subscribed calendar, in a context. There are many of them: mostly they are read as values.
class KWCalSubscriptionEvent : public ManagedRecord<KWCalSubscriptionEventModel> {
public:
    /// What of a repeating event says when it occurs, without its record.
    struct Repeating {
        QString entityID;
        std::optional<Instant> startDate;
        std::optional<Instant> endDate;
        bool isAllDay = false;
        QString timeZone; ///< empty where the zone in force counts
        QString repeatRule;
        QList<Instant> exDates;
    };
    /// In no order.
    static Result<std::vector<Repeating>> eventsWillRepeatOfUser(const QString &userID,
                                                                 ObjectContext &context);
};
