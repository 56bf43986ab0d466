#include "lists/ListContent.h"

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
    if (content.shown.partsClosedTasks()) {
        ListDataRequest open{userID, list, extent.openTasks, {}, content.shown.sortType()};
        open.includeChecklist = true;
        read = content.readOpenTasks(fetcher, open, connection);
        if (read && content.shown.showsCompleted)
            read = content.readCompletedTasks(fetcher, {userID, list, extent.countToShowOfCompleted},
                                              connection);
    } else {
        read = content.readDays(fetcher, {userID, list, extent.countToShowOfCompleted}, connection);
    }
    if (!read) return read.error();
    return content;
}

Result<void> ListContent::readOpenTasks(const KWListDataFetcher &fetcher, const ListDataRequest &request,
                                        Connection &connection)
{
    auto open = fetcher.reloadDataModel(request, connection);
    if (!open) return open.error();
    rows = std::move(*open);
    isWhole = request.limit < 0 || rows.size() < request.limit;
    hasTop = isWhole || ListDataRequest::isTopFound(shown.sortType());
    return isWhole ? Result<void>{} : readPinnedTasks(fetcher, request, connection);
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

    const std::pair positionsBefore{shown.positions, shown.pinnedPositions};
    const int countBefore = completedCount;
    Result<void> read = shown.readPositions(context.connection());
    const qsizetype openRows = rows.size();
    if (read && shown.showsCompleted)
        read = readCompletedTasks(fetcher, {userID, shown.list, extent.countToShowOfCompleted},
                                  context.connection());
    if (!read) return read.error();
    changes.areInClosedTasks = closedBefore != rows.sliced(openRows) || countBefore != completedCount ||
                               positionsBefore != std::pair{shown.positions, shown.pinnedPositions};
    changes.areNone = !changes.areInClosedTasks && openBefore == changes.rows;
    return changes;
}

// They stand in front of all others.
Result<void> ListContent::readPinnedTasks(const KWListDataFetcher &fetcher, ListDataRequest request,
                                          Connection &connection)
{
    request.condition.isPinned = true;
    request.includeChecklist = false;
    const auto pinned = fetcher.reloadDataModel(request, connection);
    if (!pinned) return pinned.error();
    rows.removeIf([](const auto &each) { return each.isPinned(); });
    rows = *pinned + rows;
    return {};
}

Result<void> ListContent::readCompletedTasks(const KWListDataFetcher &fetcher, ListDataRequest request,
                                             Connection &connection)
{
    request.onlyClosed = true;
    const auto closed = fetcher.reloadDataModel(request, connection);
    if (!closed) return closed.error();
    const Result<int> count = fetcher.count(request, connection);
    if (!count) return count.error();
    rows += *closed;
    completedCount = *count;
    isAllCompletedModelsLoadded = closed->size() >= *count;
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
    KWTaskCategory::resortBySortOrder(sections.categories, shown.positions, shown.sortType(),
                                      sections.manualOrders);
    KWTaskCategory::resortPinnedIfNeeded(sections.categories, shown.pinnedPositions);
    noteUnloaded(sections.categories);
    return sections;
}

void ListContent::noteUnloaded(QList<KWTaskCategory> &categories) const
{
    if (isAllCompletedModelsLoadded || categories.isEmpty()) return;
    if (shown.partsClosedTasks()) {
        if (!categories.last().isCompleted()) return;
        const auto loaded = std::ranges::count_if(rows, &KWTaskListItemModel::isClosed);
        categories.last().setUnloadedCount(completedCount - int(loaded));
    }
    categories.append(KWTaskCategory::loadMore());
}
