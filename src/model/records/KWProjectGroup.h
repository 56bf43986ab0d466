#pragma once

#include "model/records/KWProjectGroupModel.h"
#include "model/records/ManagedRecord.h"

/// A folder of lists in a context.
class KWProjectGroup : public ManagedRecord<KWProjectGroupModel> {
public:
    /// The user's folders in their manual order.
    static QList<KWProjectGroup *> findGroupsOfUser(const QString &userID, ObjectContext &context);
};
