#include "model/store/SidebarCounts.h"

#include "model/records/KWSmartProject.h"
#include "model/store/ColumnCodec.h"
#include "model/store/Connection.h"
#include "model/store/DatedItems.h"
#include "model/store/DatedThings.h"
#include "model/store/FilterCondition.h"
#include "model/store/FindAll.h"
#include "model/store/ListQuery.h"
#include "model/store/StoreFailure.h"

namespace {

#define OPEN_TASKS "status = 0 AND isDeleted = 0 AND isTrashed = 0"
#define SMART_LISTS                                                                                          \
    "+projectID IN (SELECT sid FROM projects WHERE userID = ? AND isDeleted = 0 AND closed = 0 AND "         \
    "showsInSmartList = 1)"

template <class Value>
Value valueAt(SQLite::Statement &statement, int column)
{
    Value value{};
    columns::read(statement.getColumn(column), value);
    return value;
}

} // namespace

Result<SidebarCounts> SidebarCounts::read(const QString &userID, const CXClock &clock, Connection &connection)
{
    using std::chrono::days;
    SidebarCounts counts;
    const CXTimeZone zone = clock.zone();
    const Day today = clock.today();
    counts.m_tomorrow = zone.startOfDay(today + days{1});
    counts.m_dayAfter = zone.startOfDay(today + days{2});
    counts.m_weekAfter = zone.startOfDay(today + days{7});
    try {
        counts.readLists(userID, connection);
        counts.readTags(userID, connection);
        counts.readFilters(userID, clock, connection);
        counts.readSmartLists(userID, connection);
        counts.readChecklistItems(userID, {}, connection);
        if (const Result<void> read = counts.readCalendars(userID, clock, connection); !read)
            return read.error();
        return counts;
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

void SidebarCounts::readLists(const QString &userID, Connection &connection)
{
    auto lists = connection.prepare("SELECT sid, groupID, userID = ? AND isDeleted = 0 AND closed = 0, "
                                    "showsInSmartList FROM projects");
    lists.bind(1, userID);
    while (lists->executeStep())
        m_lists.insert(valueAt<QString>(*lists, 0),
                       {valueAt<QString>(*lists, 1), valueAt<bool>(*lists, 2), valueAt<bool>(*lists, 3)});

    auto tasks = connection.prepare(
        "SELECT projectID, count(*) FROM tasks INDEXED BY openTasksByList WHERE " OPEN_TASKS
        " GROUP BY projectID");
    while (tasks->executeStep()) {
        List &list = m_lists[valueAt<QString>(*tasks, 0)];
        list.tasks = valueAt<int>(*tasks, 1);
        if (!list.isOpen) continue;
        m_groups[list.groupID] += list.tasks;
        if (list.showsInSmartList) m_all += list.tasks;
    }
}

void SidebarCounts::readTags(const QString &userID, Connection &connection)
{
    auto tags = connection.prepare(
        "SELECT g.name, count(*) FROM tasks t INDEXED BY openTasksByList CROSS JOIN taskTags g ON g.task = "
        "t.id WHERE t.status = 0 AND t.isDeleted = 0 AND t.isTrashed = 0 AND +t.projectID IN (SELECT sid "
        "FROM projects WHERE userID = ? AND isDeleted = 0 AND closed = 0) GROUP BY g.name");
    tags.bind(1, userID);
    while (tags->executeStep())
        m_tags.insert(valueAt<QString>(*tags, 0), valueAt<int>(*tags, 1));
    readParentTags(userID, connection);
}

void SidebarCounts::readParentTags(const QString &userID, Connection &connection)
{
    auto children = connection.prepare(
        "SELECT name, parent FROM tags WHERE userID = ? AND isDeleted = 0 AND parent NOT IN ('', name)");
    children.bind(1, userID);
    while (children->executeStep())
        m_parentTags.insert(valueAt<QString>(*children, 0), valueAt<QString>(*children, 1));
    if (m_parentTags.isEmpty()) return;
    // Those that have the parent itself are counted already.
    auto tasks = connection.prepare(
        "SELECT c.parent, count(DISTINCT t.id) FROM tags c CROSS JOIN taskTags g ON g.name = c.name CROSS "
        "JOIN "
        "tasks t ON t.id = g.task WHERE c.userID = ? AND c.isDeleted = 0 AND c.parent NOT IN ('', c.name) "
        "AND "
        "t.status = 0 AND t.isDeleted = 0 AND t.isTrashed = 0 AND +t.projectID IN (SELECT sid FROM projects "
        "WHERE userID = ? AND isDeleted = 0 AND closed = 0) AND NOT EXISTS (SELECT 1 FROM taskTags own WHERE "
        "own.name = c.parent AND own.task = t.id) GROUP BY c.parent");
    tasks.bind({userID, userID});
    while (tasks->executeStep())
        m_tags[valueAt<QString>(*tasks, 0)] += valueAt<int>(*tasks, 1);
}

QSet<QString> SidebarCounts::tagsCounting(const QStringList &tags) const
{
    QSet<QString> counting{tags.begin(), tags.end()};
    for (const QString &each : tags)
        if (const auto parent = m_parentTags.find(each); parent != m_parentTags.end())
            counting.insert(*parent);
    return counting;
}

void SidebarCounts::readFilters(const QString &userID, const CXClock &clock, Connection &connection)
{
    m_frame = StoredFilter::frameOf(userID, clock, connection);
    auto filters = connection.prepare("SELECT sid, rule FROM filters WHERE userID = ? AND isDeleted = 0");
    filters.bind(1, userID);
    while (filters->executeStep()) {
        const auto filter = CXSmartFilter::parse(valueAt<QString>(*filters, 1));
        if (!filter) continue;
        const int tasks = ListQuery::ofFilter(*filter, m_frame, userID).count(connection);
        m_filters.insert(valueAt<QString>(*filters, 0), {*filter, tasks});
    }
}

void SidebarCounts::readSmartLists(const QString &userID, Connection &connection)
{
    const std::int64_t tomorrow = storedInstant(m_tomorrow);
    auto dated = connection.prepare(
        "SELECT sum(startDate < ?), sum(startDate < ? AND (startDate >= ? OR endDate > ?)), count(*) FROM "
        "tasks INDEXED BY openTasksInOrder WHERE " OPEN_TASKS " AND startDate < ? AND " SMART_LISTS);
    dated.bind({tomorrow, storedInstant(m_dayAfter), tomorrow, tomorrow, storedInstant(m_weekAfter), userID});
    if (dated->executeStep()) {
        m_datedTasks.today = valueAt<int>(*dated, 0);
        m_datedTasks.tomorrow = valueAt<int>(*dated, 1);
        m_datedTasks.next7Days = valueAt<int>(*dated, 2);
    }
    m_assignedTasks =
        int(connection.number("SELECT count(*) FROM tasks INDEXED BY openTasksInOrder WHERE " OPEN_TASKS
                              " AND assignee = ? AND " SMART_LISTS,
                              {m_frame.me, userID}));
}

Result<void> SidebarCounts::readCalendars(const QString &userID, const CXClock &clock, Connection &connection)
{
    const auto numbers = countDatedEvents(
        {.userID = userID, .from = clock.zone().startOfDay(clock.today()), .to = m_tomorrow}, connection);
    if (!numbers) return numbers.error();
    m_calendars = *numbers;
    return {};
}

void SidebarCounts::readChecklistItems(const QString &userID, const QStringList &leftOut,
                                       Connection &connection)
{
    auto dated = connection.prepare(
        std::string{"SELECT sum(startDate < ?), sum(startDate >= ? AND startDate < ?), count(*) FROM "} +
        datedItems +
        " WHERE " OPEN_TASKS " AND startDate < ? AND " SMART_LISTS
        " AND sid NOT IN (SELECT value FROM json_each(?))");
    const std::int64_t tomorrow = storedInstant(m_tomorrow);
    dated.bind(
        {tomorrow, tomorrow, storedInstant(m_dayAfter), storedInstant(m_weekAfter), userID, idList(leftOut)});
    Dated counted;
    if (dated->executeStep())
        counted = {valueAt<int>(*dated, 0), valueAt<int>(*dated, 1), valueAt<int>(*dated, 2)};
    m_datedItems = counted;
}

Result<void> SidebarCounts::recountChecklistItems(const QString &userID, const QStringList &leftOut,
                                                  Connection &connection)
{
    try {
        readChecklistItems(userID, leftOut, connection);
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}

#undef OPEN_TASKS
#undef SMART_LISTS

std::optional<int> SidebarCounts::count(const KWListIdentifier &list) const
{
    switch (list.type) {
    case KWListIdentifierType::Project:
        return m_lists.value(list.entityID).tasks;
    case KWListIdentifierType::Group:
        return m_groups.value(list.entityID);
    case KWListIdentifierType::Tag:
        return m_tags.value(list.entityID);
    case KWListIdentifierType::SmartProject: {
        const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
        if (!smart) return std::nullopt;
        if (smart->isAll()) return m_all;
        if (smart->isToday()) return m_datedTasks.today + m_datedItems.today;
        if (smart->isTomorrow()) return m_datedTasks.tomorrow + m_datedItems.tomorrow;
        if (smart->isNext7Days()) return m_datedTasks.next7Days + m_datedItems.next7Days;
        if (smart->isAssigneedToMe()) return m_assignedTasks;
        if (smart == &KWSmartProject::habit()) return m_openHabits;
        return std::nullopt;
    }
    case KWListIdentifierType::Filter: {
        const auto filter = m_filters.constFind(list.entityID);
        return filter == m_filters.cend() ? std::nullopt : std::optional{filter->tasks};
    }
    case KWListIdentifierType::Calendar:
        return m_calendars.value(list.entityID);
    case KWListIdentifierType::View:
        return std::nullopt;
    }
    return std::nullopt;
}

void SidebarCounts::apply(const QList<TaskMove> &moves)
{
    for (const TaskMove &each : moves) {
        if (each.from) add(*each.from, -1);
        if (each.to) add(*each.to, 1);
    }
}

void SidebarCounts::take(const SidebarCounts &others, SidebarCountKinds kinds)
{
    if (kinds == allSidebarCounts) {
        *this = others;
        return;
    }
    SidebarCounts taken = others;
    if (!(kinds & SidebarCountKind::Lists)) {
        taken.m_lists = m_lists;
        taken.m_groups = m_groups;
    }
    if (!(kinds & SidebarCountKind::Tags)) {
        taken.m_tags = m_tags;
        taken.m_parentTags = m_parentTags;
    }
    if (!(kinds & SidebarCountKind::Filters)) {
        taken.m_filters = m_filters;
        taken.m_frame = m_frame;
    }
    if (!(kinds & SidebarCountKind::Calendars)) taken.m_calendars = m_calendars;
    if (!(kinds & SidebarCountKind::SmartLists)) {
        taken.m_tomorrow = m_tomorrow;
        taken.m_dayAfter = m_dayAfter;
        taken.m_weekAfter = m_weekAfter;
        taken.m_all = m_all;
        taken.m_datedTasks = m_datedTasks;
        taken.m_datedItems = m_datedItems;
        taken.m_assignedTasks = m_assignedTasks;
        taken.m_openHabits = m_openHabits;
    }
    *this = std::move(taken);
}

void SidebarCounts::add(const TaskPlace &place, int number)
{
    List &list = m_lists[place.projectID];
    list.tasks += number;
    if (!list.isOpen) return;
    m_groups[list.groupID] += number;
    for (const QString &each : tagsCounting(place.tags))
        m_tags[each] += number;
    if (!m_filters.isEmpty()) {
        const CXFilteredItem item = StoredFilter::itemOf(place, list.groupID);
        for (Filter &each : m_filters)
            if (each.filter.matches(item, m_frame)) each.tasks += number;
    }
    if (!list.showsInSmartList) return;

    m_all += number;
    if (place.assignee == m_frame.me) m_assignedTasks += number;
    if (!place.startDate) return;
    const bool reachesTomorrow =
        *place.startDate >= m_tomorrow || (place.endDate && *place.endDate > m_tomorrow);
    if (*place.startDate < m_tomorrow) m_datedTasks.today += number;
    if (*place.startDate < m_dayAfter && reachesTomorrow) m_datedTasks.tomorrow += number;
    if (*place.startDate < m_weekAfter) m_datedTasks.next7Days += number;
}
