#include "model/records/KWCalSubscriptionEvent.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/FindAll.h"
#include "model/store/StoreFailure.h"

#include <algorithm>

namespace {

// Longer ones have an index of their own, so that those before a day need not be walked from the first on.
constexpr std::chrono::milliseconds longestInOrder = std::chrono::days{32};

// Calendars that were deleted may come back, so their events are still there.
#define OF_A_CALENDAR                                                                                        \
    " AND isDeleted = 0 AND subscriptionID IN (SELECT sid FROM calSubscriptions WHERE isDeleted = 0)"
#define OF_A_SHOWN_CALENDAR OF_A_CALENDAR " AND subscriptionID NOT IN (SELECT value FROM json_each(?))"

} // namespace

Result<std::vector<KWCalSubscriptionEvent::Repeating>>
KWCalSubscriptionEvent::eventsWillRepeatOfUser(const QString &userID, ObjectContext &context)
{
    try {
        auto statement = context.connection().prepare(
            "SELECT sid, startDate, endDate, isAllDay, iif(isAllDay OR isFloating, '', timeZone), "
            "repeatRule, "
            "exDates FROM calSubscriptionEvents INDEXED BY repeatingCalSubscriptionEvents "
            "WHERE userID = ? AND repeatRule <> ''" OF_A_CALENDAR " ORDER BY id");
        statement.bind({userID});
        std::vector<Repeating> events;
        while (statement->executeStep()) {
            Repeating &event = events.emplace_back();
            int column = 0;
            const auto read = [&](auto &...values) {
                (columns::read(statement->getColumn(column++), values), ...);
            };
            read(event.entityID, event.startDate, event.endDate, event.isAllDay, event.timeZone,
                 event.repeatRule, event.exDates);
        }
        return events;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

QList<KWCalSubscriptionEventModel>
KWCalSubscriptionEvent::eventsOfUser(const QString &userID, Instant betweenStartDate, Instant andEndDate,
                                     const QStringList &hiddenCalendars, ObjectContext &context)
{
    const std::int64_t start = storedInstant(betweenStartDate);
    const std::int64_t end = storedInstant(andEndDate);
    const SqlValue hidden = idList(hiddenCalendars);
    // What has no length takes place at its start.
    QList<KWCalSubscriptionEventModel> events = context.models<KWCalSubscriptionEvent>(
        {.where = "userID = ? AND startDate >= ? AND startDate < ? AND (endDate > ? OR startDate >= ?) AND "
                  "endDate - startDate <= 2764800000" OF_A_SHOWN_CALENDAR,
         .values = {userID, storedInstant(betweenStartDate - longestInOrder), end, start, start, hidden},
         .index = "calSubscriptionEventsByStart"});
    events += context.models<KWCalSubscriptionEvent>(
        {.where = "userID = ? AND endDate > ? AND startDate < ? AND endDate - startDate > "
                  "2764800000" OF_A_SHOWN_CALENDAR,
         .values = {userID, start, end, hidden},
         .index = "longCalSubscriptionEvents"});
    std::ranges::stable_sort(events, {}, &KWCalSubscriptionEventModel::startDate);
    return events;
}

#undef OF_A_SHOWN_CALENDAR
#undef OF_A_CALENDAR
