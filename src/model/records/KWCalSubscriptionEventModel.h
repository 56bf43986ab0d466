#pragma once

#include "model/records/KWSynchronizableFields.h"
#include "model/records/RecordKind.h"

#include <QList>

/// An event of a subscribed calendar, as a plain value. Only its feed changes it. An occurrence that the feed
/// describes on its own, or that its rule does not yield, is an event of its own; what repeats leaves it out.
struct KWCalSubscriptionEventModel : KWSynchronizableFields {
    static constexpr RecordKind recordKind = RecordKind::CalSubscriptionEvent;
    static constexpr const char *tableName = "calSubscriptionEvents";

    QString subscriptionID;              ///< owning calendar
    QString uid;                         ///< of the feed; its own occurrences have the same
    std::optional<Instant> recurrenceID; ///< of such an occurrence: when it was to start
    QString title;
    QString notes;
    QString location;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate; ///< exclusive; the start of what has no length
    bool isAllDay = false;
    QString timeZone;        ///< identifier of the zone in which the dates were set
    bool isFloating = false; ///< timed, and by the wall clock of the zone in force
    QString repeatRule;      ///< RFC 5545 section 3.3.10; empty: does not repeat
    QList<Instant> exDates;

    const QString &accountID() const { return userID; }
    bool operator==(const KWCalSubscriptionEventModel &) const = default;
};

template <>
inline constexpr auto recordFields<KWCalSubscriptionEventModel> = synchronized(
    field("subscriptionID", &KWCalSubscriptionEventModel::subscriptionID, Json{"subscriptionId"},
          Change::None),
    field("uid", &KWCalSubscriptionEventModel::uid, Change::None),
    field("recurrenceID", &KWCalSubscriptionEventModel::recurrenceID, Json{"recurrenceId"}, Change::None),
    field("title", &KWCalSubscriptionEventModel::title, Change::None),
    field("notes", &KWCalSubscriptionEventModel::notes, Change::None),
    field("location", &KWCalSubscriptionEventModel::location, Change::None),
    field("startDate", &KWCalSubscriptionEventModel::startDate, Change::None),
    field("endDate", &KWCalSubscriptionEventModel::endDate, Change::None),
    field("isAllDay", &KWCalSubscriptionEventModel::isAllDay, Change::None),
    field("timeZone", &KWCalSubscriptionEventModel::timeZone, Change::None),
    field("isFloating", &KWCalSubscriptionEventModel::isFloating, Change::None),
    field("repeatRule", &KWCalSubscriptionEventModel::repeatRule, Change::None),
    field("exDates", &KWCalSubscriptionEventModel::exDates, Change::None));
