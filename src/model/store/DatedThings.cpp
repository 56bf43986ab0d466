#include "model/store/DatedThings.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/DatedItems.h"
#include "model/store/FindAll.h"
#include "model/store/ObjectContext.h"
#include "model/store/StoreFailure.h"

#include <string>

// In all of these ?1 is the user, ?2 where the range begins, ?3 where it ends and ?4 which lists or calendars
// are hidden; of occurrences ?5 is the type.

namespace {

#define IN_LISTS_SHOWN                                                                                       \
    " CROSS JOIN projects p ON p.sid = t.projectID WHERE p.userID = ?1 AND p.isDeleted = 0 AND p.closed = "  \
    "0 "                                                                                                     \
    "AND p.showsInSmartList = 1 AND p.sid NOT IN (SELECT value FROM json_each(?4))"

#define IS_THERE "t.isDeleted = 0 AND t.isTrashed = 0"

constexpr const char *openTaskIDs =
    "SELECT id FROM tasks INDEXED BY openTasksInOrder WHERE status = 0 AND isDeleted = 0 AND isTrashed = 0 "
    "AND "
    "startDate >= ?2 AND startDate < ?3 UNION ALL "
    "SELECT id FROM tasks INDEXED BY tasksByEnd WHERE isDeleted = 0 AND isTrashed = 0 AND status = 0 AND "
    "endDate > ?2 AND startDate < ?2";
constexpr const char *closedTaskIDs =
    " UNION ALL "
    "SELECT id FROM tasks INDEXED BY closedTasksByDate WHERE status <> 0 AND isDeleted = 0 AND isTrashed = 0 "
    "AND startDate >= ?2 AND startDate < ?3 UNION ALL "
    "SELECT id FROM tasks INDEXED BY tasksByEnd WHERE isDeleted = 0 AND isTrashed = 0 AND status <> 0 AND "
    "endDate > ?2 AND startDate < ?2";

std::string ofTasks(bool withClosed)
{
    return std::string{"SELECT t.sid, t.sid, NULL, t.projectID, t.title, p.color, t.priority, t.isAllDay, "
                       "t.repeatRule <> '', t.status <> 0, p.permission <> 'WRITE', t.startDate, t.endDate "
                       "FROM ("} +
           openTaskIDs + (withClosed ? closedTaskIDs : "") +
           ") c CROSS JOIN tasks t ON t.id = c.id" IN_LISTS_SHOWN " ORDER BY t.startDate, t.priority DESC, "
           "t.sortOrder, t.id";
}

// Of what has been changed since, only those are left that may still be right.
#define OCCURRENCES_OF(sources)                                                                              \
    "(SELECT id FROM repeatInstances INDEXED BY repeatInstancesByStart WHERE userID = ?1 AND startDate >= "  \
    "?2 - 86400000 AND startDate < ?3 AND (startDate >= ?2 OR endDate > ?2) AND instanceType = ?5 AND "      \
    "isDeleted = 0 UNION ALL "                                                                               \
    "SELECT id FROM repeatInstances INDEXED BY longRepeatInstances WHERE userID = ?1 AND endDate > ?2 AND "  \
    "startDate < ?2 - 86400000 AND endDate - startDate > 86400000 AND instanceType = ?5 AND isDeleted = 0"   \
    ") c CROSS JOIN repeatInstances r ON r.id = c.id CROSS JOIN " sources " t ON t.sid = r.referenceID AND " \
    "t.isDeleted = 0 AND t.repeatRule <> '' AND t.startDate < r.startDate AND (t.exDates = '[]' OR NOT "     \
    "EXISTS (SELECT 1 FROM json_each(t.exDates) WHERE value = r.startDate))"

constexpr const char *ofTaskOccurrences =
    "SELECT t.sid, t.sid, r.startDate, t.projectID, t.title, p.color, t.priority, t.isAllDay, 1, 0, "
    "p.permission <> 'WRITE', r.startDate, r.endDate FROM " OCCURRENCES_OF(
        "tasks") " AND t.status = 0 AND "
                 "t.isTrashed = 0" IN_LISTS_SHOWN " ORDER BY r.startDate, t.priority DESC, t.sortOrder, t.id";
// Of events ?6 is the only calendar that is wanted and ?7 how many.
#define OF_WANTED_CALENDARS                                                                                  \
    " CROSS JOIN calSubscriptions s ON s.sid = t.subscriptionID AND s.isDeleted = 0 WHERE "                  \
    "t.subscriptionID NOT IN (SELECT value FROM json_each(?4)) AND (?6 = '' OR t.subscriptionID = ?6)"

// Longer ones have an index of their own, so that those before a day need not be walked from the first on;
// 2764800000 milliseconds are 32 days. What has no length takes place at its start. The first occurrence of
// what repeats, too, may have become an event of its own.
#define EVENTS                                                                                               \
    "(SELECT id FROM calSubscriptionEvents INDEXED BY calSubscriptionEventsByStart WHERE userID = ?1 AND "   \
    "startDate >= ?2 - 2764800000 AND startDate < ?3 AND (endDate > ?2 OR startDate >= ?2) AND endDate - "   \
    "startDate <= 2764800000 UNION ALL "                                                                     \
    "SELECT id FROM calSubscriptionEvents INDEXED BY longCalSubscriptionEvents WHERE userID = ?1 AND "       \
    "endDate > ?2 AND startDate < ?3 AND endDate - startDate > 2764800000"                                   \
    ") c CROSS JOIN calSubscriptionEvents t ON t.id = c.id AND t.isDeleted = 0 AND (t.exDates = '[]' OR "    \
    "NOT EXISTS (SELECT 1 FROM json_each(t.exDates) WHERE value = t.startDate))" OF_WANTED_CALENDARS
#define EVENT_OCCURRENCES OCCURRENCES_OF("calSubscriptionEvents") OF_WANTED_CALENDARS

constexpr const char *ofEvents =
    "SELECT t.sid, '', NULL, t.subscriptionID, t.title, s.color, 0, t.isAllDay, t.repeatRule <> '', 0, 1, "
    "t.startDate, t.endDate FROM " EVENTS " ORDER BY t.startDate, t.id LIMIT ?7";
constexpr const char *ofEventOccurrences =
    "SELECT t.sid, '', r.startDate, t.subscriptionID, t.title, s.color, 0, t.isAllDay, 1, 0, 1, r.startDate, "
    "r.endDate FROM " EVENT_OCCURRENCES " ORDER BY r.startDate, t.id LIMIT ?7";
constexpr const char *numbersOfEvents =
    "SELECT calendar, count(*) FROM (SELECT t.subscriptionID AS calendar FROM " EVENTS
    " UNION ALL SELECT t.subscriptionID FROM " EVENT_OCCURRENCES ") GROUP BY calendar";

#undef EVENT_OCCURRENCES
#undef EVENTS
#undef OF_WANTED_CALENDARS
#undef OCCURRENCES_OF

std::string ofItems()
{
    return std::string{
               "SELECT t.itemID, t.sid, NULL, t.projectID, t.title, p.color, t.priority, t.isAllDay, 0, "
               "0, p.permission <> 'WRITE', t.startDate, NULL FROM "} +
           datedItems +
           IN_LISTS_SHOWN " AND t.startDate >= ?2 AND t.startDate < ?3 AND t.status = 0 AND " IS_THERE
                          " ORDER BY t.startDate, t.priority DESC, t.sortOrder, t.item";
}

#undef IS_THERE
#undef IN_LISTS_SHOWN

// Throws SQLite::Exception.
void readInto(std::vector<DatedThing> &things, const std::string &sql, DatedThing::Kind kind,
              const SqlValues &values, Connection &connection)
{
    auto statement = connection.prepare(sql);
    statement.bind(values);
    while (statement->executeStep()) {
        DatedThing &thing = things.emplace_back();
        thing.kind = kind;
        int column = 0;
        const auto read = [&](auto &...fields) {
            (columns::read(statement->getColumn(column++), fields), ...);
        };
        read(thing.sid, thing.taskID, thing.occurrence, thing.listID, thing.title, thing.color,
             thing.priority, thing.isAllDay, thing.repeats, thing.isClosed, thing.isReadOnly, thing.startDate,
             thing.endDate);
    }
}

SqlValues eventValues(const DatedEventsRequest &request)
{
    return {request.userID,
            storedInstant(request.from),
            storedInstant(request.to),
            idList(request.hiddenCalendars),
            std::int64_t{KWRepeatInstanceTypeEvent},
            request.calendar,
            request.limit};
}

// Throws SQLite::Exception.
void readEventsInto(std::vector<DatedThing> &things, const DatedEventsRequest &request,
                    Connection &connection)
{
    readInto(things, ofEvents, DatedThing::Kind::Event, eventValues(request), connection);
    if (request.includeRepeat)
        readInto(things, ofEventOccurrences, DatedThing::Kind::Event, eventValues(request), connection);
}

} // namespace

Result<std::vector<DatedThing>> readDatedThings(const DatedThingsRequest &request, ObjectContext &context)
{
    using enum DatedThing::Kind;
    const auto with = [&request](const QStringList &hidden, SqlValues others = {}) {
        SqlValues values{request.userID, storedInstant(request.from), storedInstant(request.to),
                         idList(hidden)};
        values.insert(values.end(), others.begin(), others.end());
        return values;
    };
    const SqlValues ofLists = with(request.hiddenLists);
    Connection &connection = context.connection();
    try {
        std::vector<DatedThing> things;
        readInto(things, ofTasks(request.includeCompleted), Task, ofLists, connection);
        if (request.includeRepeat)
            readInto(things, ofTaskOccurrences, Task,
                     with(request.hiddenLists, {std::int64_t{KWRepeatInstanceTypeTask}}), connection);
        if (request.includeChecklist) readInto(things, ofItems(), ChecklistItem, ofLists, connection);
        readEventsInto(things,
                       {.userID = request.userID,
                        .from = request.from,
                        .to = request.to,
                        .includeRepeat = request.includeRepeat,
                        .hiddenCalendars = request.hiddenCalendars},
                       connection);
        return things;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<std::vector<DatedThing>> readDatedEvents(const DatedEventsRequest &request, Connection &connection)
{
    try {
        std::vector<DatedThing> things;
        readEventsInto(things, request, connection);
        return things;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<QHash<QString, int>> countDatedEvents(const DatedEventsRequest &request, Connection &connection)
{
    try {
        auto statement = connection.prepare(numbersOfEvents);
        SqlValues values = eventValues(request);
        values.pop_back(); // the limit
        statement.bind(values);
        QHash<QString, int> numbers;
        QString calendar;
        int number = 0;
        while (statement->executeStep()) {
            columns::read(statement->getColumn(0), calendar);
            columns::read(statement->getColumn(1), number);
            numbers.insert(calendar, number);
        }
        return numbers;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
