#include "model/store/FocusRows.h"

#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/ObjectContext.h"
#include "model/store/StoreFailure.h"

using namespace Qt::StringLiterals;

// In these ?1 is the user, ?2 where the range begins, ?3 where it ends and ?4 how many are wanted.

namespace {

#define IS_STORED "isDeleted = 0 AND pomoStatus = 1"

// Longer sessions have an index of their own, so that those before a day need not be walked from the first
// on.
constexpr const char *takingPlace = "SELECT id FROM pomodoros INDEXED BY pomodorosByStart WHERE userID = ?1 "
                                    "AND startDate >= ?2 - 86400000 AND "
                                    "startDate < ?3 AND endDate > ?2 AND " IS_STORED " UNION ALL "
                                    "SELECT id FROM pomodoros INDEXED BY longPomodoros WHERE userID = ?1 AND "
                                    "endDate > ?2 AND startDate < ?2 - "
                                    "86400000 AND endDate - startDate > 86400000 AND " IS_STORED;
constexpr const char *latestSessions =
    "SELECT id FROM pomodoros INDEXED BY pomodorosByStart WHERE userID = ?1 AND "
    "startDate >= ?2 AND startDate < "
    "?3 AND " IS_STORED " ORDER BY startDate DESC, id DESC LIMIT ?4";

#undef IS_STORED

std::string rowsOf(const char *sessions, const char *order)
{
    return std::string{
               "SELECT p.sid, p.type, p.startDate, coalesce(p.endDate, p.startDate), p.pauseDuration, "
               "coalesce(s.startDate, p.startDate), "
               "coalesce(s.endDate, p.endDate - p.pauseDuration * 1000, p.startDate), "
               "coalesce(s.taskID, p.taskID), coalesce(s.habitID, ''), "
               "t.id IS NOT NULL OR h.id IS NOT NULL, coalesce(l.isInbox, 0), "
               "coalesce(t.title, h.name, s.title, ''), coalesce(l.sid, ''), "
               "coalesce(l.name, s.projectName, ''), coalesce(l.color, h.color, ''), t.tags, "
               "coalesce(s.stringOfTagNames, '') FROM ("} +
           sessions +
           ") c CROSS JOIN pomodoros p ON p.id = c.id "
           "LEFT JOIN focusSlices s INDEXED BY focusSlicesBySession ON s.pomodoroID = p.sid AND s.isDeleted "
           "= 0 "
           "LEFT JOIN tasks t ON t.sid = coalesce(s.taskID, p.taskID) AND t.isDeleted = 0 "
           "LEFT JOIN projects l ON l.sid = t.projectID AND l.isDeleted = 0 "
           "LEFT JOIN habits h ON h.sid = s.habitID AND h.isDeleted = 0 ORDER BY " +
           order;
}

// Throws SQLite::Exception.
FocusRow rowAt(SQLite::Statement &statement)
{
    FocusRow row;
    int column = 0;
    const auto read = [&](auto &...fields) { (columns::read(statement.getColumn(column++), fields), ...); };
    std::int64_t pause = 0;
    QString copiedTags;
    read(row.sessionID, row.type, row.sessionStart, row.sessionEnd, pause, row.startDate, row.endDate,
         row.taskID, row.habitID, row.isThere, row.isInInbox, row.title, row.listID, row.listName, row.color,
         row.tags, copiedTags);
    row.pause = std::chrono::seconds{pause};
    if (!row.isThere) row.tags = copiedTags.split(u", "_s, Qt::SkipEmptyParts);
    return row;
}

Result<std::vector<FocusRow>> readRows(const std::string &sql, const SqlValues &values,
                                       Connection &connection)
{
    try {
        auto statement = connection.prepare(sql);
        statement.bind(values);
        std::vector<FocusRow> rows;
        while (statement->executeStep())
            rows.push_back(rowAt(*statement));
        return rows;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

} // namespace

Result<std::vector<FocusRow>> readFocusRows(const FocusRowsRequest &request, ObjectContext &context)
{
    return readRows(rowsOf(takingPlace, "p.startDate, p.id, s.startDate, s.id"),
                    {request.userID, storedInstant(request.from), storedInstant(request.to)},
                    context.connection());
}

Result<std::vector<FocusRow>> readLatestFocusRows(const FocusRowsRequest &request, int sessions,
                                                  ObjectContext &context)
{
    return readRows(
        rowsOf(latestSessions, "p.startDate DESC, p.id DESC, s.startDate, s.id"),
        {request.userID, storedInstant(request.from), storedInstant(request.to), std::int64_t{sessions}},
        context.connection());
}
