#include "model/store/ListQuery.h"

#include "model/records/KWSmartProject.h"
#include "model/store/CompletionOrder.h"
#include "model/store/Connection.h"
#include "model/store/DatedItems.h"
#include "model/store/FilterCondition.h"
#include "model/store/FindAll.h"
#include "model/text/SearchWords.h"

#include <limits>

namespace {

using std::chrono::days;

constexpr const char *isOpen = "t.status = 0 AND t.isDeleted = 0 AND t.isTrashed = 0";
constexpr const char *isClosed = "t.status <> 0 AND t.isDeleted = 0 AND t.isTrashed = 0";
constexpr const char *isInTrash = "t.isTrashed = 1 AND t.isDeleted = 0";
constexpr const char *tasksByList = "tasks t INDEXED BY openTasksByList";
constexpr const char *tasksInOrder = "tasks t INDEXED BY openTasksInOrder";
constexpr const char *closedTasks = "tasks t INDEXED BY closedTasksInOrder";
constexpr const char *closedTasksByList = "tasks t INDEXED BY closedTasksByList";
constexpr const char *pinnedTasks = "tasks t INDEXED BY pinnedTasks";
constexpr const char *trashedTasks = "tasks t INDEXED BY trashedTasks";
constexpr const char *anyTasks = "tasks t";
constexpr const char *tasksByID = "tasks t INDEXED BY sqlite_autoindex_tasks_1"; // of the column sid

constexpr const char *inSmartLists = "+t.projectID IN (SELECT sid FROM projects WHERE userID = ? AND "
                                     "isDeleted = 0 AND closed = 0 AND showsInSmartList = 1)";
constexpr const char *inOpenLists =
    "+t.projectID IN (SELECT sid FROM projects WHERE userID = ? AND isDeleted = 0 AND closed = 0)";
constexpr const char *inTheseLists = "+t.projectID IN (SELECT value FROM json_each(?))";
constexpr const char *hasWords = "t.id IN (SELECT rowid FROM taskSearch WHERE taskSearch MATCH ?)";
// The same, but never what the planner begins with.
constexpr const char *hasWordsOnTheWay = "+t.id IN (SELECT rowid FROM taskSearch WHERE taskSearch MATCH ?)";
constexpr const char *hasTag = "t.id IN (SELECT task FROM taskTags WHERE name = ?)";
// Or one of its child tags.
constexpr const char *hasTagOrChild =
    "t.id IN (SELECT task FROM taskTags WHERE name = ? UNION SELECT g.task FROM tags c CROSS JOIN taskTags g "
    "ON "
    "g.name = c.name WHERE c.parent = ? AND c.userID = ? AND c.isDeleted = 0)";

// By what the task says itself.
constexpr const char *saysWords = "hasWords(?, t.title, t.content, t.\"desc\")";

// As openTasksInOrder stands, so that the top of a list is read without sorting all of it.
constexpr const char *byDate = "t.startDate NULLS LAST, t.priority DESC, t.sortOrder, t.id";
constexpr const char *byManualOrder = "t.sortOrder, t.id";
const std::string latestCompletedFirst = std::string{completionOrder} + " DESC, t.id DESC";
constexpr const char *latestChangedFirst = "t.modifiedTime DESC, t.id DESC";

// How the top of a list is found; nothing where only all of its rows tell.
std::optional<std::string> orderOf(KWTaskSortType sortType)
{
    switch (sortType) {
    case KWTaskSortTypeCustom:
        return byManualOrder;
    case KWTaskSortTypeDate:
        return byDate;
    case KWTaskSortTypePriority:
        return std::string{"t.priority DESC, "} + byDate;
    case KWTaskSortTypeTitle:
        return std::string{"t.title COLLATE NOCASE, "} + byDate;
    case KWTaskSortTypeCreatedTime:
        return "t.createdTime DESC, t.id DESC";
    case KWTaskSortTypeModifiedTime:
        return latestChangedFirst;
    case KWTaskSortTypeCompletionDate:
        return latestCompletedFirst;
    case KWTaskSortTypeProject:
    case KWTaskSortTypeTag:
    case KWTaskSortTypeAssignee:
    case KWTaskSortTypePinnedDate:
        break;
    }
    return std::nullopt;
}

std::int64_t completionOf(const CompletionCursor &cursor)
{
    return cursor.completionDate ? storedInstant(*cursor.completionDate)
                                 : std::numeric_limits<std::int64_t>::min();
}

ListQuery &between(ListQuery &query, std::optional<Day> from, std::optional<Day> until, const CXClock &clock)
{
    const auto startOf = [zone = clock.zone()](Day day) { return storedInstant(zone.startOfDay(day)); };
    if (until) query.also("t.startDate < ?", {startOf(*until + days{1})});
    if (from) query.also("(t.startDate >= ? OR t.endDate > ?)", SqlValues(2, startOf(*from)));
    return query.also("t.startDate IS NOT NULL");
}

ListQuery inSmart(const char *from, const char *state, const QString &userID, const std::string &orderBy)
{
    return ListQuery{from, state, {}, orderBy}.also(inSmartLists, {userID});
}

std::optional<ListQuery> ofSmartProject(const ListDataRequest &request, const CXClock &clock)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(request.selection.entityID);
    if (!smart) return std::nullopt;
    const QString &user = request.userID;
    const Day today = clock.today();
    ListQuery open = inSmart(tasksInOrder, isOpen, user, byDate);
    if (smart->isAll()) return open;
    if (smart->isToday()) return between(open, std::nullopt, today, clock);
    if (smart->isTomorrow()) return between(open, today + days{1}, today + days{1}, clock);
    if (smart->isNext7Days()) return between(open, std::nullopt, today + days{6}, clock);
    if (smart->isAssigneedToMe())
        return open.also("t.assignee = (SELECT userServerID FROM users WHERE sid = ?)", {user});
    if (smart->isCompleted()) return ListQuery::ofCompletedTasks({.userID = user});
    if (smart->isAbandoned())
        return inSmart(closedTasks, isClosed, user, latestCompletedFirst).also("t.status = -1");
    if (smart->isTrash())
        return ListQuery{trashedTasks, isInTrash, {}, latestChangedFirst}.also("t.userID = ?", {user});
    return std::nullopt;
}

// Today, Tomorrow and Next 7 Days; nothing for other lists.
std::optional<ListQuery> ofDatedList(const ListDataRequest &request, const CXClock &clock)
{
    const KWListIdentifier &list = request.selection;
    const bool isDated = !request.onlyClosed && list.type == KWListIdentifierType::SmartProject &&
                         KWSmartProject::isDateSensetiveSmartProjectID(list.entityID);
    return isDated ? ofSmartProject(request, clock) : std::nullopt;
}

} // namespace

bool ListDataRequest::isTopFound(KWTaskSortType sortType) { return orderOf(sortType).has_value(); }

ListDataRequest ListDataRequest::ofClosedTasks() const
{
    ListDataRequest closed = *this;
    closed.onlyClosed = true;
    closed.includeCompleted = false;
    closed.limit = completionLimit;
    return closed;
}

ListQuery &ListQuery::also(const std::string &condition, const SqlValues &more)
{
    where += " AND " + condition;
    values.insert(values.end(), more.begin(), more.end());
    return *this;
}

ListQuery::WordHits ListQuery::wordHits(const ListDataRequest &request, const CXClock &clock,
                                        Connection &connection)
{
    // To look up that many costs as much as to walk on to the twenty-fifth of them.
    constexpr std::int64_t many = 4000;
    const SearchPhrase phrase{request.condition.text};
    if (request.limit < 0 || phrase.isEmpty()) return WordHits::Few;
    const std::int64_t hits = connection.number(
        "SELECT count(*) FROM (SELECT rowid FROM taskSearch WHERE taskSearch MATCH ? LIMIT ?)",
        {phrase.matchExpression(), many});
    if (hits < many) return WordHits::Few;
    constexpr int first = 24;
    ListDataRequest withoutWords = request;
    withoutWords.condition.text.clear();
    const auto walk = ofRequest(withoutWords, clock);
    if (!walk) return WordHits::Many;
    SqlValues values = walk->values;
    values.insert(values.begin(), request.condition.text);
    values.push_back(std::int64_t(first));
    const std::int64_t said = connection.number(std::string{"SELECT coalesce(sum(says), 0) FROM (SELECT "} +
                                                    saysWords + " AS says FROM " + walk->from + " WHERE " +
                                                    walk->where + " ORDER BY " + walk->orderBy + " LIMIT ?)",
                                                values);
    return said >= first / 3 ? WordHits::Most : WordHits::Many;
}

std::optional<ListQuery> ListQuery::ofRequest(const ListDataRequest &request, const CXClock &clock,
                                              WordHits wordHits)
{
    const QString &id = request.selection.entityID;
    std::optional<ListQuery> query;
    switch (request.selection.type) {
    case KWListIdentifierType::Project:
        query = ListQuery{tasksByList, isOpen, {}, byManualOrder};
        query->also("t.projectID = ?", {id});
        break;
    case KWListIdentifierType::Group:
        query = ListQuery{tasksByList, isOpen, {}, byDate};
        query->also("t.projectID IN (SELECT sid FROM projects WHERE groupID = ? AND userID = ? AND "
                    "isDeleted = 0 AND closed = 0)",
                    {id, request.userID});
        break;
    case KWListIdentifierType::Tag:
        query = ListQuery{anyTasks, isOpen, {}, byDate};
        query->also(hasTagOrChild, {id, id, request.userID}).also(inOpenLists, {request.userID});
        break;
    case KWListIdentifierType::SmartProject:
        query = ofSmartProject(request, clock);
        break;
    case KWListIdentifierType::Filter:
    case KWListIdentifierType::Calendar:
    case KWListIdentifierType::View:
        break;
    }
    if (query) query->refine(request, clock, wordHits);
    return query;
}

std::optional<ListQuery> ListQuery::ofChecklistItems(const ListDataRequest &request, const CXClock &clock)
{
    auto query = request.includeChecklist ? ofDatedList(request, clock) : std::nullopt;
    if (!query) return std::nullopt;
    query->refine(request, clock, WordHits::Few);
    query->from = request.condition.taskIDs.isEmpty() ? datedItems : datedItemsOfTasks;
    return query;
}

std::optional<ListQuery> ListQuery::ofOccurrences(const ListDataRequest &request, const CXClock &clock)
{
    auto query = request.includeRepeat ? ofDatedList(request, clock) : std::nullopt;
    if (!query) return std::nullopt;
    // What a task that is late has missed since is not to be done as well.
    query->also("t.userID = ? AND t.startDate >= ?",
                {request.userID, storedInstant(clock.zone().startOfDay(clock.today()))});
    query->refine(request, clock, WordHits::Few);
    query->from = request.condition.taskIDs.isEmpty() ? laterOccurrences : laterOccurrencesOfTasks;
    return query;
}

ListQuery ListQuery::ofFilter(const CXSmartFilter &filter, const CXSmartFilterFrame &frame,
                              const QString &userID)
{
    const FilterCondition condition = FilterCondition::of(filter, frame);
    const char *from = condition.way == FilterCondition::Way::Chosen  ? anyTasks
                       : condition.way == FilterCondition::Way::Lists ? tasksByList
                                                                      : tasksInOrder;
    ListQuery query{from, isOpen, {}, byDate};
    return query.also(condition.where, condition.values).also(inOpenLists, {userID});
}

ListQuery ListQuery::ofCompletedTasks(const CompletedTasksRequest &request)
{
    ListQuery query{closedTasks, isClosed, {}, latestCompletedFirst};
    query.also("t.status = 2");
    if (request.projectIDs.isEmpty())
        query.also(inSmartLists, {request.userID});
    else
        query.also(inTheseLists, {idList(request.projectIDs)});
    if (request.from) query.also(std::string{completionOrder} + " >= ?", {storedInstant(*request.from)});
    if (request.until) query.also(std::string{completionOrder} + " < ?", {storedInstant(*request.until)});
    if (request.after) {
        // The first alone is what the index is searched by.
        const SqlValue completion = completionOf(*request.after);
        query.also(std::string{completionOrder} + " <= ?", {completion});
        query.also(std::string{"("} + completionOrder + ", t.id) < (?, ?)",
                   {completion, request.after->rowID});
    }
    return query;
}

ListQuery &ListQuery::narrow(const ListCondition &condition, const CXClock &clock, WordHits wordHits)
{
    // Few tasks have one tag: they are looked up, and nothing is walked.
    if (!condition.tag.isEmpty()) {
        from = anyTasks;
        also(hasTag, {condition.tag});
    }
    if (!condition.text.isEmpty()) {
        const SearchPhrase phrase{condition.text};
        if (wordHits == WordHits::Few) from = anyTasks;
        if (phrase.isEmpty())
            also("0");
        else if (wordHits == WordHits::Most)
            also(saysWords, {condition.text});
        else
            also(wordHits == WordHits::Few ? hasWords : hasWordsOnTheWay, {phrase.matchExpression()});
    }
    if (!condition.projectIDs.isEmpty()) also(inTheseLists, {idList(condition.projectIDs)});
    if (condition.isPinned) {
        from = pinnedTasks;
        also("t.pinnedDate IS NOT NULL");
    }
    if (!condition.taskIDs.isEmpty()) onlyTasks(condition.taskIDs);
    if (condition.priority) also("t.priority = ?", {std::int64_t(*condition.priority)});
    if (condition.from || condition.until) between(*this, condition.from, condition.until, clock);
    return *this;
}

ListQuery &ListQuery::refine(const ListDataRequest &request, const CXClock &clock, WordHits wordHits)
{
    if (request.sortType) orderBy = orderOf(*request.sortType).value_or(orderBy);
    if (request.onlyClosed) turnToClosed(request, clock);
    return narrow(request.condition, clock, wordHits);
}

void ListQuery::turnToClosed(const ListDataRequest &request, const CXClock &clock)
{
    const std::string open{isOpen};
    if (where.starts_with(open)) where.replace(0, open.size(), isClosed);
    if (std::string_view{from} == tasksByList) from = closedTasksByList;
    if (std::string_view{from} == tasksInOrder) from = closedTasks;
    orderBy = latestCompletedFirst;
    const bool isSearch = request.selection.type == KWListIdentifierType::SmartProject ||
                          request.selection.type == KWListIdentifierType::Filter;
    if (isSearch)
        also(std::string{completionOrder} + " >= ?", {storedInstant(clock.zone().startOfDay(clock.today()))});
}

ListQuery &ListQuery::onlyTasks(const QStringList &taskIDs)
{
    from = tasksByID;
    return also("t.sid IN (SELECT value FROM json_each(?))", {idList(taskIDs)});
}

int ListQuery::count(Connection &connection) const
{
    return int(connection.number(std::string{"SELECT count(*) FROM "} + from + " WHERE " + where, values));
}
