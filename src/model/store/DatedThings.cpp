#include "model/store/DatedThings.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/DatedItems.h"
#include "model/store/ObjectContext.h"
#include "model/store/StoreFailure.h"

#include <string>

// In all of these ?1 is the user, ?2 where the range begins and ?3 where it ends.

namespace {

#define IN_LISTS_SHOWN                                                                                       \
    " CROSS JOIN projects p ON p.sid = t.projectID WHERE p.userID = ?1 AND p.isDeleted = 0 AND p.closed = "  \
    "0 "                                                                                                     \
    "AND p.showsInSmartList = 1"

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
constexpr const char *ofOccurrences =
    "SELECT t.sid, t.sid, r.startDate, t.projectID, t.title, p.color, t.priority, t.isAllDay, 1, 0, "
    "p.permission <> 'WRITE', r.startDate, r.endDate FROM ("
    "SELECT id FROM repeatInstances INDEXED BY repeatInstancesByStart WHERE userID = ?1 AND instanceType = 0 "
    "AND isDeleted = 0 AND startDate >= ?2 - 86400000 AND startDate < ?3 AND (startDate >= ?2 OR endDate > "
    "?2) UNION ALL "
    "SELECT id FROM repeatInstances INDEXED BY longRepeatInstances WHERE userID = ?1 AND instanceType = 0 "
    "AND "
    "isDeleted = 0 AND endDate - startDate > 86400000 AND endDate > ?2 AND startDate < ?2 - 86400000"
    ") c CROSS JOIN repeatInstances r ON r.id = c.id CROSS JOIN tasks t ON t.sid = r.referenceID "
    "AND t.status = 0 AND " IS_THERE " AND t.repeatRule <> '' AND t.startDate < r.startDate "
    "AND NOT EXISTS (SELECT 1 FROM json_each(t.exDates) WHERE value = r.startDate)" IN_LISTS_SHOWN
    " ORDER BY r.startDate, t.priority DESC, t.sortOrder, t.id";

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
              const DatedThingsRequest &request, Connection &connection)
{
    auto statement = connection.prepare(sql);
    statement.bind({request.userID, storedInstant(request.from), storedInstant(request.to)});
    while (statement->executeStep()) {
        DatedThing &thing = things.emplace_back();
        thing.kind = kind;
        int column = 0;
        const auto read = [&](auto &...values) {
            (columns::read(statement->getColumn(column++), values), ...);
        };
        read(thing.sid, thing.taskID, thing.occurrence, thing.listID, thing.title, thing.color,
             thing.priority, thing.isAllDay, thing.repeats, thing.isClosed, thing.isReadOnly, thing.startDate,
             thing.endDate);
    }
}

} // namespace

Result<std::vector<DatedThing>> readDatedThings(const DatedThingsRequest &request, ObjectContext &context)
{
    using enum DatedThing::Kind;
    Connection &connection = context.connection();
    try {
        std::vector<DatedThing> things;
        readInto(things, ofTasks(request.includeCompleted), Task, request, connection);
        if (request.includeRepeat) readInto(things, ofOccurrences, Task, request, connection);
        if (request.includeChecklist) readInto(things, ofItems(), ChecklistItem, request, connection);
        return things;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
