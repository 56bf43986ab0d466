#include "model/store/KWListDataFetcher.h"

#include "model/records/KWSmartProject.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/EventRows.h"
#include "model/store/FilterCondition.h"
#include "model/store/FindAll.h"
#include "model/store/ListQuery.h"
#include "model/store/StoreFailure.h"

namespace {

constexpr const char *taskColumns =
    "t.sid, t.title, t.kind, t.status, t.priority, t.isAllDay, t.repeatRule <> '', t.sortOrder, t.id,"
    " t.projectID, t.columnID, t.parentId, t.tags, t.assignee, t.startDate, t.endDate, t.completionDate,"
    " t.pinnedDate, t.createdTime, t.modifiedTime,"
    " (SELECT count(*) FROM checklistItems c WHERE c.taskID = t.sid AND c.isDeleted = 0),"
    " (SELECT count(*) FROM checklistItems c WHERE c.taskID = t.sid AND c.isDeleted = 0 AND c.status <> 0),"
    " (SELECT count(*) FROM attachments a WHERE a.taskID = t.sid AND a.isDeleted = 0),"
    " (SELECT sum(f.pomoDuration + f.stopwatchDuration) FROM focusSummaries f"
    "  WHERE f.taskID = t.sid AND f.isDeleted = 0),";
constexpr const char *placeInTree =
    " CASE WHEN t.parentId = '' THEN 0 ELSE coalesce((SELECT child.key FROM tasks p,"
    "  json_each(p.childIds) child WHERE p.sid = t.parentId AND child.value = t.sid), 0x7fffffff) END";
constexpr const char *noPlace = " 0";

constexpr const char *itemColumns =
    "t.itemID, t.title, t.sid, t.taskTitle, t.priority, t.isAllDay, t.sortOrder, t.item, t.projectID, t.tags,"
    " t.assignee, t.startDate, t.endDate, t.occurrence, t.createdTime, t.modifiedTime";

KWTaskListItemModel readRow(SQLite::Statement &statement)
{
    KWTaskListItemModel row;
    int column = 0;
    const auto read = [&](auto &...values) { (columns::read(statement.getColumn(column++), values), ...); };
    read(row.sid, row.title, row.taskKind, row.status, row.priority, row.isAllDay, row.repeats, row.sortOrder,
         row.rowID, row.projectID, row.columnID, row.parentId, row.tags, row.assignee, row.startDate,
         row.endDate, row.completionDate, row.pinnedDate, row.createdTime, row.modifiedTime,
         row.checklistCount, row.checklistDoneCount, row.attachmentCount, row.focusDuration, row.childPlace);
    return row;
}

QList<KWTaskListItemModel> readRows(SQLite::Statement &statement)
{
    QList<KWTaskListItemModel> rows;
    while (statement.executeStep())
        rows.append(readRow(statement));
    return rows;
}

KWTaskListItemModel readItem(SQLite::Statement &statement)
{
    KWTaskListItemModel row;
    int column = 0;
    const auto read = [&](auto &...values) { (columns::read(statement.getColumn(column++), values), ...); };
    read(row.sid, row.title, row.ownerID, row.ownerTitle, row.priority, row.isAllDay, row.sortOrder,
         row.rowID, row.projectID, row.tags, row.assignee, row.startDate, row.endDate, row.occurrence,
         row.createdTime, row.modifiedTime);
    row.repeats = row.isLaterOccurrence();
    if (!row.repeats) row.kind = KWTaskListItemModel::Kind::ChecklistItem;
    return row;
}

// Throws SQLite::Exception.
QList<KWTaskListItemModel> itemsOf(const ListQuery &query, std::int64_t limit, Connection &connection)
{
    auto statement =
        connection.prepare(std::string{"SELECT "} + itemColumns + " FROM " + query.from + " WHERE " +
                           query.where + " ORDER BY " + query.orderBy + ", t.item LIMIT ?");
    SqlValues values = query.values;
    values.push_back(limit);
    statement.bind(values);
    QList<KWTaskListItemModel> rows;
    while (statement->executeStep())
        rows.append(readItem(*statement));
    return rows;
}

// Throws SQLite::Exception.
QList<KWTaskListItemModel> rowsOf(const ListQuery &query, const char *place, std::int64_t limit,
                                  Connection &connection)
{
    // Chosen and put in order first, so that the sorter carries ids and not whole rows.
    auto statement = connection.prepare(std::string{"SELECT "} + taskColumns + place +
                                        " FROM (SELECT t.id AS chosen FROM " + query.from + " WHERE " +
                                        query.where + " ORDER BY " + query.orderBy +
                                        " LIMIT ?) JOIN tasks t ON t.id = chosen ORDER BY " + query.orderBy);
    SqlValues values = query.values;
    values.push_back(limit);
    statement.bind(values);
    return readRows(*statement);
}

// Throws SQLite::Exception.
Result<std::optional<ListQuery>> queryOf(const ListDataRequest &request, const CXClock &clock,
                                         ListQuery::WordHits wordHits, Connection &connection)
{
    using Query = std::optional<ListQuery>;
    if (request.selection.type != KWListIdentifierType::Filter)
        return ListQuery::ofRequest(request, clock, wordHits);
    const auto filter = StoredFilter::find(request.selection.entityID, connection);
    if (!filter) return Query{};
    if (!*filter) return filter->error();
    const CXSmartFilterFrame frame = StoredFilter::frameOf(request.userID, clock, connection);
    return Query{ListQuery::ofFilter(**filter, frame, request.userID).refine(request, clock, wordHits)};
}

} // namespace

Result<QList<KWTaskListItemModel>> KWListDataFetcher::reloadDataModel(const ListDataRequest &request,
                                                                      Connection &connection) const
{
    try {
        const auto query =
            queryOf(request, m_clock, ListQuery::wordHits(request, m_clock, connection), connection);
        if (!query) return query.error();
        if (!*query) return readEventRows(request, m_clock, connection);
        QList<KWTaskListItemModel> rows =
            rowsOf(**query, request.disableTree ? noPlace : placeInTree, request.limit, connection);
        if (const auto items = ListQuery::ofChecklistItems(request, m_clock))
            rows += itemsOf(*items, request.limit, connection);
        if (const auto later = ListQuery::ofOccurrences(request, m_clock))
            rows += itemsOf(*later, request.limit, connection);
        const auto events = readEventRows(request, m_clock, connection);
        if (!events) return events.error();
        rows += *events;
        if (!request.includeCompleted) return rows;
        const auto closed = reloadDataModel(request.ofClosedTasks(), connection);
        if (!closed) return closed.error();
        return rows + *closed;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<KWListDataFetcher::Matrix> KWListDataFetcher::reloadDataModelForMatrix(const ListDataRequest &request,
                                                                              Connection &connection) const
{
    ListDataRequest all = request;
    all.selection = KWListIdentifier::smartProject(KWSmartProject::all().identifier());
    all.disableTree = true;
    Matrix quadrants;
    for (std::size_t i = 0; i < quadrants.size(); ++i) {
        all.condition.priority = KWTaskPriorities[i];
        auto rows = reloadDataModel(all, connection);
        if (!rows) return rows.error();
        quadrants[i] = std::move(*rows);
    }
    return quadrants;
}

Result<QList<KWTaskListItemModel>> KWListDataFetcher::generateModels(const QStringList &taskIDs,
                                                                     Connection &connection) const
{
    try {
        auto statement = connection.prepare(std::string{"SELECT "} + taskColumns + noPlace +
                                            " FROM json_each(?) wanted JOIN tasks t ON t.sid = wanted.value "
                                            "WHERE t.isDeleted = 0 ORDER BY wanted.key");
        statement.bind(1, idList(taskIDs));
        return readRows(*statement);
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<QList<KWTaskListItemModel>> KWListDataFetcher::completedTasks(const CompletedTasksRequest &request,
                                                                     Connection &connection) const
{
    try {
        return rowsOf(ListQuery::ofCompletedTasks(request), placeInTree, request.limit, connection);
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<int> KWListDataFetcher::count(const ListDataRequest &request, Connection &connection) const
{
    try {
        const auto query = queryOf(request, m_clock, ListQuery::WordHits::Few, connection);
        if (!query) return query.error();
        const auto items = ListQuery::ofChecklistItems(request, m_clock);
        return (*query ? (*query)->count(connection) : 0) + (items ? items->count(connection) : 0);
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<bool> KWListDataFetcher::contains(const QString &taskID, const ListDataRequest &request,
                                         Connection &connection) const
{
    ListDataRequest ofTask = request;
    ofTask.condition.taskIDs = {taskID};
    const Result<int> found = count(ofTask, connection);
    if (!found) return found.error();
    return *found > 0;
}
