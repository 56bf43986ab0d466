#pragma once

#include "model/records/KWUserModel.h"
#include "model/records/ManagedRecord.h"

/// An account in a context.
class KWUser : public ManagedRecord<KWUserModel> {
public:
    const QString &userID() const { return sid(); }
    /// A local account exists on this computer only.
    bool isLocal() const { return model().userServerID == 0; }
};
