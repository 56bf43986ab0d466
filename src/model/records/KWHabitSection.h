#pragma once

#include "model/records/KWHabitSectionModel.h"
#include "model/records/ManagedRecord.h"

/// A section of the habits in a context.
class KWHabitSection : public ManagedRecord<KWHabitSectionModel> {
public:
    /// The user's sections that are not deleted, in their manual order.
    static QList<KWHabitSection *> ofUser(const QString &userID, ObjectContext &context)
    {
        return context.fetch<KWHabitSection>(
            {.where = "userID = ? AND isDeleted = 0", .values = {userID}, .orderBy = "sortOrder, sid"});
    }
};
