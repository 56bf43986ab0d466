#pragma once

#include "model/records/KWPomoSettingsModel.h"
#include "model/records/ManagedRecord.h"

/// The focus settings of an account in a context.
class KWPomoSettings : public ManagedRecord<KWPomoSettingsModel> {
public:
    /// Whether the account uses focus, as one does that has never said so.
    static bool isFocusEnabled(const QString &userID, ObjectContext &context);
};
