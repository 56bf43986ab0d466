#include "model/records/KWProjectGroup.h"

QList<KWProjectGroup *> KWProjectGroup::findGroupsOfUser(const QString &userID, ObjectContext &context)
{
    return context.fetch<KWProjectGroup>(
        {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"});
}
