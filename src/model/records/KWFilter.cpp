#include "model/records/KWFilter.h"

QList<KWFilter *> KWFilter::findFiltersOfUser(const QString &userID, ObjectContext &context)
{
    return context.fetch<KWFilter>(
        {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"});
}
