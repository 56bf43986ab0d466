#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"
#include "model/records/RecordFields.h"

#include <QString>

#include <cstdint>
#include <optional>

/// The fields that every synchronised record has; the value twins inherit them.
struct KWSynchronizableFields {
    QString sid;    ///< identifier, shared with the service
    QString userID; ///< owner account
    QString etag;   ///< version tag of the last pulled state
    std::int64_t sortOrder = 0;
    std::optional<Instant> createdTime;
    std::optional<Instant> modifiedTime;
    KWSyncStatus syncStatus = KWSyncStatusCreated;
    std::uint8_t pendingChanges = 0; ///< `Change` bits not pushed yet
    bool isDeleted = false;

    bool operator==(const KWSynchronizableFields &) const = default;
};

inline constexpr auto synchronizableFields =
    fields(field("sid", &KWSynchronizableFields::sid, Json{"id"}, Change::None),
           field("userID", &KWSynchronizableFields::userID, Change::None),
           field("etag", &KWSynchronizableFields::etag, Change::None),
           field("sortOrder", &KWSynchronizableFields::sortOrder, Change::Order),
           field("createdTime", &KWSynchronizableFields::createdTime),
           field("modifiedTime", &KWSynchronizableFields::modifiedTime, Change::None),
           field("syncStatus", &KWSynchronizableFields::syncStatus, Change::None),
           field("pendingChanges", &KWSynchronizableFields::pendingChanges, Change::None),
           field("isDeleted", &KWSynchronizableFields::isDeleted, Change::None));

/// The field table of a synchronised twin: the common fields, then its own.
template <class... Fields>
constexpr auto synchronized(Fields... own)
{
    return std::tuple_cat(synchronizableFields, fields(own...));
}
