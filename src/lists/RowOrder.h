#pragma once

#include "lists/SectionPlaces.h"

#include <QCollator>

#include <optional>
#include <vector>

/// Puts the rows of one section in order by the sort type; what is equal, by time, priority, the place in
/// its list and the time it came into the store.
class RowOrder {
public:
    using Rows = std::vector<const KWTaskListItemModel *>;

    RowOrder(KWTaskSortType sortType, const QLocale &locale);

    void sort(Rows &rows, SectionPlace::Zone zone) const;
    /// Where a row of open tasks, none of them pinned, belongs among others that stand in this order.
    qsizetype placeOf(const KWTaskListItemModel &row, const QList<KWTaskListItemModel> &others) const;

private:
    void sortByTitle(Rows &rows) const;

    KWTaskSortType m_sortType;
    QLocale m_locale;
};
