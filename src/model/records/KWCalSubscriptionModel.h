#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

/// A calendar that an account has subscribed to, as a plain value. Whether the calendar shows it is in
/// KWCalendarDisplayConfigurationModel.
struct KWCalSubscriptionModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::CalSubscription;
    static constexpr const char *tableName = "calSubscriptions";

    QString name;
    QString url;                         ///< "https:", "http:", or "file:" for a file of this computer
    QString color;                       ///< "#rrggbb"; empty for none
    std::optional<Instant> lastReadDate; ///< when its events were last known to be those of the feed
    std::optional<Instant> lastTryDate;  ///< when it was last asked for, with or without success
    int failureCount = 0;                ///< tries in a row that failed
    QString failure;                     ///< what the latest one failed of, as a sentence; empty for nothing
    QString feedTag;                     ///< ETag of what was last read, RFC 9110 section 8.8.3
    QString feedDate;                    ///< Last-Modified of it, as the server wrote it

    bool operator==(const KWCalSubscriptionModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWCalSubscriptionModel> =
    synchronized(field("name", &KWCalSubscriptionModel::name), field("url", &KWCalSubscriptionModel::url),
                 field("color", &KWCalSubscriptionModel::color),
                 field("lastReadDate", &KWCalSubscriptionModel::lastReadDate, Change::None),
                 field("lastTryDate", &KWCalSubscriptionModel::lastTryDate, Change::None),
                 field("failureCount", &KWCalSubscriptionModel::failureCount, Change::None),
                 field("failure", &KWCalSubscriptionModel::failure, Change::None),
                 field("feedTag", &KWCalSubscriptionModel::feedTag, Change::None),
                 field("feedDate", &KWCalSubscriptionModel::feedDate, Change::None));
