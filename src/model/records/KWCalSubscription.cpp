#include "model/records/KWCalSubscription.h"

QList<KWCalSubscription *> KWCalSubscription::findSubscriptionsOfUser(const QString &userID,
                                                                      ObjectContext &context)
{
    return context.fetch<KWCalSubscription>(
        {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"});
}
