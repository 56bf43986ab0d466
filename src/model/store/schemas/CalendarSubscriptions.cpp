#include "model/store/schemas/RecordTable.h"
#include "model/store/schemas/Schemas.h"

// 2764800000 milliseconds are 32 days.
std::string schemas::calendarSubscriptions()
{
    return table("calSubscriptions",
                 "name TEXT NOT NULL, url TEXT NOT NULL, color TEXT NOT NULL, lastReadDate INTEGER, "
                 "lastTryDate INTEGER, failureCount INTEGER NOT NULL, failure TEXT NOT NULL, feedTag TEXT "
                 "NOT NULL, feedDate TEXT NOT NULL") +
           table("calSubscriptionEvents",
                 "subscriptionID TEXT NOT NULL REFERENCES calSubscriptions (sid) ON DELETE CASCADE "
                 "DEFERRABLE INITIALLY DEFERRED, uid TEXT NOT NULL, recurrenceID INTEGER, title TEXT NOT "
                 "NULL, notes TEXT NOT NULL, location TEXT NOT NULL, startDate INTEGER, endDate INTEGER, "
                 "isAllDay INTEGER NOT NULL, timeZone TEXT NOT NULL, isFloating INTEGER NOT NULL, "
                 "repeatRule TEXT NOT NULL, exDates TEXT NOT NULL") +
           "CREATE INDEX calSubscriptionEventsByCalendar ON calSubscriptionEvents (subscriptionID);"
           "CREATE INDEX calSubscriptionEventsByStart ON calSubscriptionEvents (userID, startDate);"
           "CREATE INDEX longCalSubscriptionEvents ON calSubscriptionEvents (userID, endDate) "
           "WHERE endDate - startDate > 2764800000;"
           "CREATE INDEX repeatingCalSubscriptionEvents ON calSubscriptionEvents (userID) "
           "WHERE repeatRule <> '' AND isDeleted = 0;";
}
