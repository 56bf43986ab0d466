#include "model/store/KWListDataFetcher.h"

#include "model/records/KWSmartProject.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/StoreFailure.h"

namespace {

constexpr const char *isOpen = "t.status = 0 AND t.isDeleted = 0 AND t.isTrashed = 0";
constexpr const char *isClosed = "t.status <> 0 AND t.isDeleted = 0 AND t.isTrashed = 0";
constexpr const char *tasksByList = "tasks t INDEXED BY openTasksByList";
constexpr const char *tasksByDate = "tasks t INDEXED BY openTasksByDate";
constexpr const char *closedTasks = "tasks t INDEXED BY closedTasksByCompletion";
constexpr const char *anyTasks = "tasks t";

constexpr const char *inSmartLists = " AND +t.projectID IN (SELECT sid FROM projects WHERE userID = ? AND "
                                     "isDeleted = 0 AND closed = 0 AND showsInSmartList = 1)";
constexpr const char *inOpenLists =
    " AND +t.projectID IN (SELECT sid FROM projects WHERE userID = ? AND isDeleted = 0 AND closed = 0)";

constexpr const char *byDate = "t.startDate IS NULL, t.startDate, t.priority DESC, t.sortOrder, t.id";
constexpr const char *byManualOrder = "t.sortOrder, t.id";
constexpr const char *latestCompletedFirst = "t.completionDate DESC, t.id DESC";

constexpr const char *rowColumns =
    "t.sid, t.title, t.kind, t.status, t.priority, t.isAllDay, t.repeatRule <> '', t.sortOrder, t.projectID,"
    " t.tags, t.startDate, t.endDate, t.completionDate,"
    " (SELECT count(*) FROM checklistItems c WHERE c.taskID = t.sid AND c.isDeleted = 0),"
    " (SELECT count(*) FROM checklistItems c WHERE c.taskID = t.sid AND c.isDeleted = 0 AND c.status <> 0)";

KWTaskListItemModel readRow(SQLite::Statement &statement)
{
    KWTaskListItemModel row;
    int column = 0;
    const auto next = [&](auto &value) { columns::read(statement.getColumn(column++), value); };
    next(row.sid);
    next(row.title);
    next(row.taskKind);
    next(row.status);
    next(row.priority);
    next(row.isAllDay);
    next(row.repeats);
    next(row.sortOrder);
    next(row.projectID);
    next(row.tags);
    next(row.startDate);
    next(row.endDate);
    next(row.completionDate);
    next(row.checklistCount);
    next(row.checklistDoneCount);
    return row;
}

std::int64_t milliseconds(Instant instant) { return instant.time_since_epoch().count(); }

} // namespace

KWListDataFetcher::Query KWListDataFetcher::openTasksBetween(const ListDataRequest &request,
                                                             std::optional<Day> from,
                                                             std::optional<Day> until) const
{
    const CXTimeZone zone = m_clock.zone();
    Query query{tasksByDate, isOpen, {}, byDate};
    query.where += " AND t.startDate IS NOT NULL";
    if (until) {
        query.where += " AND t.startDate < ?";
        query.values.push_back(milliseconds(zone.startOfDay(*until)));
    }
    if (from) {
        query.where += " AND (t.startDate >= ? OR t.endDate > ?)";
        query.values.insert(query.values.end(), 2, milliseconds(zone.startOfDay(*from)));
    }
    query.where += inSmartLists;
    query.values.push_back(request.userID);
    return query;
}

std::optional<KWListDataFetcher::Query> KWListDataFetcher::queryFor(const ListDataRequest &request) const
{
    using namespace std::chrono_literals;
    constexpr std::chrono::days oneDay{1};
    const QString &id = request.selection.entityID;
    const Day today = m_clock.today();
    switch (request.selection.type) {
    case KWListIdentifierType::Project:
        return Query{tasksByList, std::string{isOpen} + " AND t.projectID = ?", {id}, byManualOrder};
    case KWListIdentifierType::Group:
        return Query{tasksByList,
                     std::string{isOpen} + " AND t.projectID IN (SELECT sid FROM projects WHERE groupID = ?"
                                           " AND userID = ? AND isDeleted = 0 AND closed = 0)",
                     {id, request.userID},
                     byDate};
    case KWListIdentifierType::Tag:
        return Query{anyTasks,
                     std::string{isOpen} + " AND t.id IN (SELECT task FROM taskTags WHERE name = ?)" +
                         inOpenLists,
                     {id, request.userID},
                     byDate};
    case KWListIdentifierType::SmartProject: {
        const KWSmartProject *smart = KWSmartProject::withIdentifier(id);
        if (!smart) return std::nullopt;
        if (smart->isToday()) return openTasksBetween(request, std::nullopt, today + oneDay);
        if (smart->isTomorrow()) return openTasksBetween(request, today + oneDay, today + 2 * oneDay);
        if (smart->isNext7Days()) return openTasksBetween(request, std::nullopt, today + 7 * oneDay);
        if (smart->isAll())
            return Query{tasksByList, std::string{isOpen} + inSmartLists, {request.userID}, byDate};
        if (smart->isCompleted())
            return Query{closedTasks,
                         std::string{isClosed} + " AND t.status = 2" + inSmartLists,
                         {request.userID},
                         latestCompletedFirst};
        return std::nullopt;
    }
    case KWListIdentifierType::Filter:
    case KWListIdentifierType::View:
        return std::nullopt;
    }
    return std::nullopt;
}

Result<QList<KWTaskListItemModel>> KWListDataFetcher::reloadDataModel(const ListDataRequest &request,
                                                                      Connection &connection) const
{
    const std::optional<Query> query = queryFor(request);
    QList<KWTaskListItemModel> rows;
    if (!query) return rows;
    try {
        // Chosen and put in order first, so that the sorter carries ids and not whole rows.
        auto statement =
            connection.prepare(std::string{"SELECT "} + rowColumns + " FROM (SELECT t.id AS chosen FROM " +
                               query->from + " WHERE " + query->where + " ORDER BY " + query->orderBy +
                               " LIMIT ?) JOIN tasks t ON t.id = chosen ORDER BY " + query->orderBy);
        int index = 0;
        for (const SqlValue &value : query->values)
            statement.bind(++index, value);
        statement.bind(++index, request.limit);
        while (statement->executeStep())
            rows.append(readRow(*statement));
        return rows;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

Result<std::optional<int>> KWListDataFetcher::count(const ListDataRequest &request,
                                                    Connection &connection) const
{
    const bool isCompletedList = KWSmartProject::isCompletedSmartProjectID(request.selection.entityID);
    const std::optional<Query> query = isCompletedList ? std::nullopt : queryFor(request);
    if (!query) return std::optional<int>{};
    try {
        return std::optional{int(connection.number(
            std::string{"SELECT count(*) FROM "} + query->from + " WHERE " + query->where, query->values))};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
