#include "model/records/KWCalSubscriptionEvent.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/StoreFailure.h"

Result<std::vector<KWCalSubscriptionEvent::Repeating>>
KWCalSubscriptionEvent::eventsWillRepeatOfUser(const QString &userID, ObjectContext &context)
{
    try {
        // Calendars that were deleted may come back, so their events are still there.
        auto statement = context.connection().prepare(
            "SELECT sid, startDate, endDate, isAllDay, iif(isAllDay OR isFloating, '', timeZone), "
            "repeatRule, "
            "exDates FROM calSubscriptionEvents INDEXED BY repeatingCalSubscriptionEvents "
            "WHERE userID = ? AND repeatRule <> ''"
            " AND isDeleted = 0 AND subscriptionID IN (SELECT sid FROM calSubscriptions WHERE isDeleted = "
            "0)");
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
