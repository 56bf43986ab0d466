#pragma once

#include "corvexkit/filter/CXSmartFilter.h"
#include "model/records/KWFilterModel.h"
#include "model/records/ManagedRecord.h"

/// A custom filter in a context.
class KWFilter : public ManagedRecord<KWFilterModel> {
public:
    /// Its rule, read; an error whose sentence says why it cannot be.
    Result<CXSmartFilter> parsedSmartFilter() const { return CXSmartFilter::parse(model().rule); }

    /// The user's filters in their manual order.
    static QList<KWFilter *> findFiltersOfUser(const QString &userID, ObjectContext &context);
};
