#include "lists/ListContent.h"

#include "model/store/KWListDataFetcher.h"
#include "model/store/ObjectContext.h"

Result<ListContent> ListContent::read(const KWListIdentifier &list, const QString &userID, std::int64_t limit,
                                      ObjectContext &context)
{
    Result<ShownList> shown = ShownList::read(list, userID, context);
    if (!shown) return shown.error();
    auto rows =
        KWListDataFetcher{context.clock()}.reloadDataModel({userID, list, limit}, context.connection());
    if (!rows) return rows.error();
    const bool isWhole = limit < 0 || rows->size() < limit;
    return ListContent{std::move(*shown), std::move(*rows), isWhole};
}

ListContent::Sections ListContent::sections(const QSet<QString> &hiddenTasks) const
{
    QList<KWTaskListItemModel> visible = rows;
    if (!hiddenTasks.isEmpty())
        visible.removeIf([&hiddenTasks](const auto &each) { return hiddenTasks.contains(each.sid); });
    Sections sections;
    sections.categories =
        KWTaskCategory::buildCategories(visible, shown, shown.sortType(), false, shown.isSortable);
    KWTaskCategory::resortBySortOrder(sections.categories, shown.positions, shown.sortType(),
                                      sections.manualOrders);
    KWTaskCategory::resortPinnedIfNeeded(sections.categories, shown.pinnedPositions);
    return sections;
}
