#include "lists/RowOrder.h"

#include "model/store/SqlValue.h"

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

// As the index openTasksInOrder stands; a checklist item may have the row of a task.
auto byTime(const Row &row)
{
    return std::tuple{earliest(row.startDate), -row.priority, row.sortOrder, row.rowID, row.kind};
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

// Calls `use` with what rows of open tasks are put in order by; titles have a way of their own.
template <class Use>
void withKey(KWTaskSortType sortType, Use &&use)
{
    switch (sortType) {
    case KWTaskSortTypeCustom:
        return use([](const Row &row) { return std::tuple{row.sortOrder, row.rowID}; });
    case KWTaskSortTypeCreatedTime:
        return use(latestFirst(&Row::createdTime));
    case KWTaskSortTypeModifiedTime:
        return use(latestFirst(&Row::modifiedTime));
    case KWTaskSortTypeCompletionDate:
        return use(latestFirst(&Row::completionDate));
    case KWTaskSortTypeTitle:
    case KWTaskSortTypeDate:
    case KWTaskSortTypePriority:
    case KWTaskSortTypeProject:
    case KWTaskSortTypeTag:
    case KWTaskSortTypeAssignee:
    case KWTaskSortTypePinnedDate:
        break;
    }
    use(byTime);
}

QCollator collatorOf(const QLocale &locale)
{
    QCollator collator{locale};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

} // namespace

RowOrder::RowOrder(KWTaskSortType sortType, const QLocale &locale) : m_sortType(sortType), m_locale(locale) {}

void RowOrder::sort(Rows &rows, SectionPlace::Zone zone) const
{
    if (zone == SectionPlace::Zone::Completed) return sortBy(latestFirst(&Row::completionDate), rows);
    if (zone == SectionPlace::Zone::Pinned) return sortBy(latestFirst(&Row::pinnedDate), rows);
    if (zone == SectionPlace::Zone::Events) return sortBy([](const Row &row) { return byTime(row); }, rows);
    const bool isOfHabits = zone == SectionPlace::Zone::Habits; // as they are put in order on their page
    if (m_sortType == KWTaskSortTypeTitle && !isOfHabits) return sortByTitle(rows);
    withKey(isOfHabits ? KWTaskSortTypeCustom : m_sortType, [&rows](auto key) { sortBy(key, rows); });
}

qsizetype RowOrder::placeOf(const Row &row, const QList<Row> &others) const
{
    qsizetype place = 0;
    if (m_sortType == KWTaskSortTypeTitle) {
        const QCollator collator = collatorOf(m_locale);
        const auto isBefore = [&collator](const Row &one, const Row &other) {
            const int order = collator.compare(one.title, other.title);
            return order < 0 || (order == 0 && byTime(one) < byTime(other));
        };
        return std::ranges::lower_bound(others, row, isBefore) - others.begin();
    }
    withKey(m_sortType,
            [&](auto key) { place = std::ranges::lower_bound(others, key(row), {}, key) - others.begin(); });
    return place;
}

void RowOrder::sortByTitle(Rows &rows) const
{
    const QCollator collator = collatorOf(m_locale);
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
