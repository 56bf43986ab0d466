#include "model/store/Migrations.h"

#include "model/records/EveryRecord.h"
#include "model/store/Connection.h"
#include "model/store/schemas/Schemas.h"

#include <array>
#include <span>
#include <string>

namespace {

std::span<const std::string> migrations()
{
    static const std::array inOrder{
        schemas::accountsListsAndTasks(),
        schemas::everyOtherKind(),
        schemas::repeatSources(),
        schemas::subtasksAndTrash(),
        schemas::taskQueries(),
        schemas::search(),
        schemas::reminders(),
        schemas::closedTasksAndPlaces(),
        schemas::habitDays(),
        schemas::listParts(),
        schemas::calendarDisplay(),
        schemas::calendarSubscriptions(),
        schemas::longOccurrences(),
        schemas::habitDayStart(),
        schemas::habitReminders(),
        schemas::eventsInLists(),
        schemas::calendarChoices(),
        schemas::focusOfHabits(),
        schemas::focusSessions(),
        schemas::focusOnCalendar(),
    };
    return inOrder;
}

} // namespace

int Migrations::currentVersion() { return int(migrations().size()); }

void Migrations::applyUpTo(int version, Connection &connection)
{
    const int stored = int(connection.number("PRAGMA user_version"));
    for (int next = stored; next < version; ++next) {
        WriteTransaction transaction{connection};
        // Another process may have been faster.
        if (connection.number("PRAGMA user_version") > next) continue;
        connection.execute(migrations()[std::size_t(next)].c_str());
        connection.execute(("PRAGMA user_version = " + std::to_string(next + 1)).c_str());
        transaction.commit();
    }
}

void Migrations::apply(Connection &connection)
{
    applyUpTo(currentVersion(), connection);
    // NOT INDEXED: an index may answer without the table.
#define TABLE_NAME(Record) Record::Model::tableName,
    for (const char *each : {EVERY_RECORD(TABLE_NAME)})
        connection.number(std::string{"SELECT EXISTS (SELECT 1 FROM "} + each + " NOT INDEXED)");
#undef TABLE_NAME
}
