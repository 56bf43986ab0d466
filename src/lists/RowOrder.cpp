#include "lists/RowOrder.h"

#include <algorithm>
#include <tuple>

namespace {

using Row = KWTaskListItemModel;

// Nothing comes last when the earliest is first, and when the latest is.
std::int64_t earliest(const std::optional<Instant> &moment)
{
    return storedInstant(moment.value_or(Instant::max()));
}
std::int64_t latest(const std::optional<Instant> &moment)
{
    return -storedInstant(moment.value_or(Instant::min() + std::chrono::milliseconds{1}));
}

// As the index openTasksInOrder stands.
auto byTime(const Row &row)
{
    return std::tuple{earliest(row.startDate), -row.priority, row.sortOrder, row.rowID};
}

template <class Key>
void sortBy(Key &&key, RowOrder::Rows &rows)
{
    std::ranges::sort(rows, {}, [&key](const Row *each) { return key(*each); });
}

auto latestFirst(std::optional<Instant> Row::*moment)
{
    return [moment](const Row &row) { return std::tuple{latest(row.*moment), -row.rowID}; };
}

} // namespace

RowOrder::RowOrder(KWTaskSortType sortType, const QLocale &locale) : m_sortType(sortType), m_locale(locale) {}

void RowOrder::sort(Rows &rows, SectionPlace::Zone zone) const
{
    if (zone == SectionPlace::Zone::Completed) return sortBy(latestFirst(&Row::completionDate), rows);
    if (zone == SectionPlace::Zone::Pinned) return sortBy(latestFirst(&Row::pinnedDate), rows);
    switch (m_sortType) {
    case KWTaskSortTypeCustom:
        return sortBy([](const Row &row) { return std::tuple{row.sortOrder, row.rowID}; }, rows);
    case KWTaskSortTypeTitle:
        return sortByTitle(rows);
    case KWTaskSortTypeCreatedTime:
        return sortBy(latestFirst(&Row::createdTime), rows);
    case KWTaskSortTypeModifiedTime:
        return sortBy(latestFirst(&Row::modifiedTime), rows);
    case KWTaskSortTypeCompletionDate:
        return sortBy(latestFirst(&Row::completionDate), rows);
    case KWTaskSortTypeDate:
    case KWTaskSortTypePriority:
    case KWTaskSortTypeProject:
    case KWTaskSortTypeTag:
    case KWTaskSortTypeAssignee:
    case KWTaskSortTypePinnedDate:
        break;
    }
    sortBy(byTime, rows);
}

void RowOrder::sortByTitle(Rows &rows) const
{
    QCollator collator{m_locale};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    struct Titled {
        QCollatorSortKey key;
        const Row *row;
    };
    std::vector<Titled> titled;
    titled.reserve(rows.size());
    for (const Row *each : rows)
        titled.push_back({collator.sortKey(each->title), each});
    std::ranges::sort(titled, [](const Titled &one, const Titled &other) {
        const int order = one.key.compare(other.key);
        return order < 0 || (order == 0 && byTime(*one.row) < byTime(*other.row));
    });
    std::ranges::transform(titled, rows.begin(), &Titled::row);
}
