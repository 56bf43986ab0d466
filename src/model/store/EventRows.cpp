#include "model/store/EventRows.h"

#include "corvexkit/recurrence/CXRecurrenceAssistant.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/DatedThings.h"
#include "model/store/ListDays.h"
#include "model/store/StoreFailure.h"

namespace {

KWTaskListItemModel rowOfEvent(DatedThing event)
{
    KWTaskListItemModel row;
    row.kind = KWTaskListItemModel::Kind::CalendarEvent;
    row.sid = event.sid;
    if (event.occurrence) row.sid += u':' + QString::number(storedInstant(*event.occurrence));
    row.ownerID = std::move(event.sid);
    row.title = std::move(event.title);
    row.projectID = std::move(event.listID);
    row.color = std::move(event.color);
    row.isAllDay = event.isAllDay;
    row.repeats = event.repeats;
    row.startDate = event.startDate;
    row.endDate = event.endDate;
    return row;
}

// Throws SQLite::Exception.
bool beginsLater(const QString &calendar, const QString &userID, Instant moment, Connection &connection)
{
    return connection.number(
        "SELECT EXISTS (SELECT 1 FROM calSubscriptionEvents INDEXED BY calSubscriptionEventsByStart WHERE "
        "userID = ? AND startDate >= ? AND subscriptionID = ? AND isDeleted = 0)",
        {userID, storedInstant(moment), calendar});
}

// Throws SQLite::Exception.
bool goesOnRepeating(const QString &calendar, Instant moment, const CXTimeZone &local, Connection &connection)
{
    auto statement = connection.prepare(
        "SELECT startDate, isAllDay, iif(isAllDay OR isFloating, '', timeZone), repeatRule, exDates FROM "
        "calSubscriptionEvents INDEXED BY calSubscriptionEventsByCalendar WHERE subscriptionID = ? AND "
        "repeatRule <> '' AND isDeleted = 0");
    statement.bind({calendar});
    while (statement->executeStep()) {
        CXRecurringObject event;
        QString zone;
        QList<Instant> excluded;
        columns::read(statement->getColumn(0), event.startDate);
        columns::read(statement->getColumn(1), event.isAllDay);
        columns::read(statement->getColumn(2), zone);
        columns::read(statement->getColumn(3), event.recurrenceRuleString);
        columns::read(statement->getColumn(4), excluded);
        event.excludedOccurrenceDates = {excluded.begin(), excluded.end()};
        event.timeZone = zone.isEmpty() ? local : CXTimeZone::named(zone).value_or(local);
        if (CXRecurrenceAssistant::nextOccurrence(event, moment - std::chrono::milliseconds{1})) return true;
    }
    return false;
}

} // namespace

Result<QList<KWTaskListItemModel>> readEventRows(const ListDataRequest &request, const CXClock &clock,
                                                 Connection &connection)
{
    QList<KWTaskListItemModel> rows;
    const bool isOfCalendar = request.selection.type == KWListIdentifierType::Calendar;
    const auto days = daysOfList(request.selection, clock.today(), request.calendarDays);
    if (!days || request.onlyClosed || !(isOfCalendar || request.includeEvents)) return rows;
    const CXTimeZone zone = clock.zone();
    auto events = readDatedEvents({.userID = request.userID,
                                   .from = zone.startOfDay(days->first),
                                   .to = zone.startOfDay(days->end),
                                   .hiddenCalendars = isOfCalendar ? QStringList{} : request.hiddenCalendars,
                                   .calendar = isOfCalendar ? request.selection.entityID : QString{},
                                   .limit = request.limit},
                                  connection);
    if (!events) return events.error();
    rows.reserve(qsizetype(events->size()));
    for (DatedThing &each : *events) {
        rows.append(rowOfEvent(std::move(each)));
        rows.last().rowID = rows.size();
    }
    return rows;
}

Result<bool> hasLaterEvents(const ListDataRequest &request, const CXClock &clock, Connection &connection)
{
    const auto days = daysOfList(request.selection, clock.today(), request.calendarDays);
    if (!days || request.selection.type != KWListIdentifierType::Calendar) return false;
    const QString &calendar = request.selection.entityID;
    const Instant end = clock.zone().startOfDay(days->end);
    try {
        return beginsLater(calendar, request.userID, end, connection) ||
               goesOnRepeating(calendar, end, clock.zone(), connection);
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
