#pragma once

#include "model/records/KWUserModel.h"
#include "model/records/ManagedRecord.h"

/// An account in a context.
class KWUser : public ManagedRecord<KWUserModel> {
public:
    const QString &userID() const { return sid(); }
};
