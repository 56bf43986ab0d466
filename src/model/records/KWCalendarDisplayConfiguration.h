#pragma once

#include "model/records/KWCalendarDisplayConfigurationModel.h"
#include "model/records/ManagedRecord.h"

/// What the calendar of an account shows, in a context.
class KWCalendarDisplayConfiguration : public ManagedRecord<KWCalendarDisplayConfigurationModel> {
public:
    /// What the user has chosen, or the values it comes with.
    static KWCalendarDisplayConfigurationModel ofUser(const QString &userID, ObjectContext &context);
    /// The list is gone: the user's choice no longer names it.
    static void forgetList(const QString &listID, const QString &userID, ObjectContext &context);
};
