#pragma once

#include "model/records/KWConstants.h"
#include "model/store/ObjectContext.h"

#include <algorithm>
#include <string>

/// One step from a position, within the bounds also where an import brought one from beyond them.
inline std::int64_t sortOrderAfter(std::int64_t order)
{
    return std::clamp(order, KWSortOrderMin, KWSortOrderMax - KWSortOrderStep) + KWSortOrderStep;
}
inline std::int64_t sortOrderBefore(std::int64_t order)
{
    return std::clamp(order, KWSortOrderMin + KWSortOrderStep, KWSortOrderMax) - KWSortOrderStep;
}

/// The manual position behind all records that the user has of the kind, those not saved yet included.
template <class Record>
std::int64_t sortOrderBehindAll(const QString &userID, ObjectContext &context)
{
    const std::string sql =
        std::string{"SELECT max(sortOrder) FROM "} + Record::Model::tableName + " WHERE userID = ?";
    std::int64_t last = context.number(sql.c_str(), {userID});
    for (const Record *each : context.inserted<Record>())
        if (each->model().userID == userID) last = std::max(last, each->model().sortOrder);
    return sortOrderAfter(last);
}
