#include "lists/ListContent.h"

#include "model/store/EventRows.h"
#include "model/store/HabitRows.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/ObjectContext.h"

#include <algorithm>

namespace {

using Row = KWTaskListItemModel;

} // namespace

Result<ListContent> ListContent::read(const KWListIdentifier &list, const QString &userID,
                                      const ListExtent &extent, ObjectContext &context)
{
    Result<ShownList> shown = ShownList::read(list, userID, context);
    if (!shown) return shown.error();
    ListContent content{.shown = std::move(*shown)};
    const KWListDataFetcher fetcher{context.clock()};
    Connection &connection = context.connection();
    Result<void> read;
    if (content.shown.isOfEvents()) {
        ListDataRequest request{.userID = userID, .selection = list, .limit = extent.openTasks};
        request.calendarDays = extent.calendarDays;
        read = content.readEvents(fetcher, request, context);
    } else if (content.shown.partsClosedTasks()) {
        ListDataRequest request{userID, list, extent.openTasks, {}, content.shown.sortType()};
        request.includeChecklist = true;
        request.includeRepeat = true;
        request.includeEvents = content.shown.showsEvents;
        request.hiddenCalendars = content.shown.hiddenCalendars;
        request.includeCompleted = content.shown.showsCompleted;
        request.completionLimit = extent.countToShowOfCompleted;
        read = content.readTasks(fetcher, request, connection);
        if (list == KWListIdentifier::todayProject()) content.rows += readHabitRows(userID, context);
    } else {
        read = content.readDays(fetcher, {userID, list, extent.countToShowOfCompleted}, connection);
    }
    if (!read) return read.error();
    return content;
}

Result<void> ListContent::readTasks(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                    Connection &connection)
{
    auto read = fetcher.reloadDataModel(request, connection);
    if (!read) return read.error();
    rows = std::move(*read);
    isWhole = request.limit < 0 || rows.size() - closedRows() < request.limit;
    hasTop = isWhole || ListDataRequest::isTopFound(shown.sortType());
    const Result<void> pinned = isWhole ? Result<void>{} : readPinnedTasks(fetcher, request, connection);
    return pinned && request.includeCompleted ? countCompleted(fetcher, request, connection) : pinned;
}

Result<ListContent::Changes> ListContent::readAgain(const QStringList &taskIDs, const QString &userID,
                                                    const ListExtent &extent, ObjectContext &context)
{
    const KWListDataFetcher fetcher{context.clock()};
    Changes changes{.tasks = {taskIDs.begin(), taskIDs.end()}};
    for (const Row &each : std::as_const(rows)) // the parent says in which order they stand
        if (!each.parentId.isEmpty() && taskIDs.contains(each.parentId)) changes.tasks.insert(each.sid);
    if (!changes.tasks.isEmpty()) {
        ListDataRequest request{.userID = userID, .selection = shown.list};
        request.condition.taskIDs = changes.tasks.values();
        request.includeChecklist = true;
        request.includeRepeat = true;
        auto open = fetcher.reloadDataModel(request, context.connection());
        if (!open) return open.error();
        changes.rows = std::move(*open);
    }
    QList<Row> closedBefore;
    QList<Row> openBefore;
    rows.removeIf([&](const Row &each) {
        if (each.isClosed())
            closedBefore.append(each);
        else if (changes.tasks.contains(each.taskID()))
            openBefore.append(each);
        else
            return false;
        return true;
    });
    rows += changes.rows;

    const ManualPositions positionsBefore = shown.positions;
    const int countBefore = completedCount;
    Result<void> read = shown.readPositions(context.connection());
    const qsizetype openRows = rows.size();
    if (read && shown.showsCompleted) {
        ListDataRequest request{.userID = userID, .selection = shown.list};
        request.completionLimit = extent.countToShowOfCompleted;
        read = readCompletedTasks(fetcher, request, context.connection());
    }
    if (!read) return read.error();
    changes.areInClosedTasks = closedBefore != rows.sliced(openRows) || countBefore != completedCount ||
                               positionsBefore != shown.positions;
    changes.areNone = !changes.areInClosedTasks && openBefore == changes.rows;
    return changes;
}

// They stand in front of all others.
Result<void> ListContent::readPinnedTasks(const KWListDataFetcher &fetcher, ListDataRequest request,
                                          Connection &connection)
{
    request.condition.isPinned = true;
    request.includeChecklist = false;
    request.includeRepeat = false;
    request.includeEvents = false;
    request.includeCompleted = false;
    const auto pinned = fetcher.reloadDataModel(request, connection);
    if (!pinned) return pinned.error();
    rows.removeIf([](const auto &each) { return each.isPinned() && !each.isClosed(); });
    rows = *pinned + rows;
    return {};
}

Result<void> ListContent::readCompletedTasks(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                             Connection &connection)
{
    const auto closed = fetcher.reloadDataModel(request.ofClosedTasks(), connection);
    if (!closed) return closed.error();
    rows += *closed;
    return countCompleted(fetcher, request, connection);
}

Result<void> ListContent::countCompleted(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                         Connection &connection)
{
    const Result<int> count = fetcher.count(request.ofClosedTasks(), connection);
    if (!count) return count.error();
    completedCount = *count;
    isAllCompletedModelsLoadded = closedRows() >= *count;
    return {};
}

qsizetype ListContent::closedRows() const
{
    return std::ranges::count_if(rows, [](const Row &each) { return each.isClosed() && !each.isHabit(); });
}

Result<void> ListContent::readEvents(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                     ObjectContext &context)
{
    auto events = fetcher.reloadDataModel(request, context.connection());
    if (!events) return events.error();
    const Result<bool> later = ::hasLaterEvents(request, context.clock(), context.connection());
    if (!later) return later.error();
    rows = std::move(*events);
    hasLaterEvents = *later;
    isWhole = request.limit < 0 || rows.size() < request.limit;
    return {};
}

Result<void> ListContent::readDays(const KWListDataFetcher &fetcher, ListDataRequest request,
                                   Connection &connection)
{
    const qsizetype wanted = request.limit++;
    for (;; request.limit *= 2) {
        auto days = fetcher.reloadDataModel(request, connection);
        if (!days) return days.error();
        rows = std::move(*days);
        isAllCompletedModelsLoadded = rows.size() < request.limit;
        if (isAllCompletedModelsLoadded) return {};
        for (qsizetype i = wanted; i < rows.size(); ++i)
            if (dayOf(rows.at(i)) != dayOf(rows.at(i - 1))) {
                rows.resize(i);
                return {};
            }
    }
}

Day ListContent::dayOf(const KWTaskListItemModel &row) const
{
    const auto &moment =
        shown.sortType() == KWTaskSortTypeModifiedTime ? row.modifiedTime : row.completionDate;
    return moment ? shown.zone.dayOf(*moment) : Day::min();
}

ListContent::Sections ListContent::sections(const QSet<QString> &hiddenTasks) const
{
    QList<KWTaskListItemModel> visible = rows;
    if (!hiddenTasks.isEmpty())
        visible.removeIf([&hiddenTasks](const auto &each) { return hiddenTasks.contains(each.taskID()); });
    Sections sections;
    sections.categories =
        KWTaskCategory::buildCategories(visible, shown, shown.sortType(), false, shown.partsClosedTasks());
    KWTaskCategory::resortBySortOrder(sections.categories, shown, sections.manualOrders);
    KWTaskCategory::resortPinnedIfNeeded(sections.categories, shown.positions);
    noteUnloaded(sections.categories);
    return sections;
}

void ListContent::noteUnloaded(QList<KWTaskCategory> &categories) const
{
    if (shown.isOfEvents()) {
        if (hasLaterEvents) categories.append(KWTaskCategory::laterEvents());
        return;
    }
    if (isAllCompletedModelsLoadded || categories.isEmpty()) return;
    if (shown.partsClosedTasks()) {
        if (!categories.last().isCompleted()) return;
        categories.last().setUnloadedCount(completedCount - int(closedRows()));
    }
    categories.append(KWTaskCategory::loadMore());
}
