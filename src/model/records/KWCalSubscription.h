#pragma once

#include "model/records/KWCalSubscriptionModel.h"
#include "model/records/ManagedRecord.h"

/// A subscribed calendar in a context.
class KWCalSubscription : public ManagedRecord<KWCalSubscriptionModel> {
public:
    /// The user's calendars in their manual order.
    static QList<KWCalSubscription *> findSubscriptionsOfUser(const QString &userID, ObjectContext &context);
};
