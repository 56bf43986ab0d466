#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A pinned entry of the sidebar and its position among them, as a plain value.
struct KWProjectPinnedSortOrderModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::ProjectPinnedSortOrder;
    static constexpr const char *tableName = "projectPinnedSortOrders";

    QString listID; ///< the encoded list selection

    bool operator==(const KWProjectPinnedSortOrderModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWProjectPinnedSortOrderModel> =
    synchronized(field("listID", &KWProjectPinnedSortOrderModel::listID, Json{"listId"}, Change::Order));
