#include "lists/RowOrder.h"
#include "lists/RowTree.h"
#include "lists/SectionPlaces.h"
#include "model/records/KWTagModel.h"

#include <QSet>

#include <algorithm>
#include <map>
#include <optional>

namespace {

using Row = KWTaskListItemModel;
using Rows = QList<Row>;

bool mixesTasksAndNotes(const Rows &rows)
{
    const auto isNote = [](const Row &row) { return row.isNote(); };
    const auto isTask = [](const Row &row) { return !row.isNote() && !row.isEvent() && !row.isHabit(); };
    return std::ranges::any_of(rows, isNote) && std::ranges::any_of(rows, isTask);
}

// Rows that stand in the section on their own, each with where it and its children end.
struct Block {
    qsizetype begin;
    qsizetype end;
    std::optional<std::int64_t> position{};
};

QList<Block> blocksOf(const Rows &rows, const ManualPositions::Positions &positions)
{
    QList<Block> blocks;
    QSet<QString> above;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const Row &row = rows.at(i);
        if (above.contains(row.parentId) && !row.parentId.isEmpty()) {
            blocks.last().end = i + 1;
        } else {
            blocks.append({i, i + 1});
            if (const auto found = positions.find(row.sid); found != positions.end())
                blocks.last().position = *found;
        }
        above.insert(row.sid);
    }
    return blocks;
}

void resort(KWTaskCategory &category, const ManualPositions::Positions &positions)
{
    if (positions.isEmpty()) return;
    QList<Block> blocks = blocksOf(category.models(), positions);
    const auto firstFree = std::ranges::stable_partition(blocks, [](const Block &each) {
                               return each.position.has_value();
                           }).begin();
    if (firstFree == blocks.begin()) return;
    std::ranges::stable_sort(blocks.begin(), firstFree, {}, &Block::position);
    Rows sorted;
    for (const Block &each : blocks)
        sorted += category.models().sliced(each.begin, each.end - each.begin);
    category.setModels(std::move(sorted));
}

// Whether rows that are put in order by hand have a position for a sort type, in the section where they
// would stand.
class ManualOrderFinder {
public:
    ManualOrderFinder(const QList<KWTaskCategory> &sections, const ShownList &shown)
        : m_sections(sections), m_shown(shown)
    {
    }

    bool finds(KWTaskSortType sortType)
    {
        const auto positions = m_shown.positions.of(sortType);
        if (positions.isEmpty()) return false;
        readRows();
        const SectionPlaces places{m_shown, sortType, {}};
        for (auto group = positions.begin(); group != positions.end(); ++group)
            for (auto task = group->keyBegin(); task != group->keyEnd(); ++task)
                if (const Row *row = m_rows.value(*task); row && standsIn(group.key(), *row, places))
                    return true;
        return false;
    }

private:
    void readRows()
    {
        if (!m_rows.isEmpty()) return;
        for (const KWTaskCategory &section : m_sections) {
            if (section.isPinned() || section.isCompleted()) continue;
            for (const Row &each : section.models())
                m_rows.insert(each.sid, &each);
        }
    }

    static bool standsIn(const QString &group, const Row &row, const SectionPlaces &places)
    {
        switch (places.sortType()) {
        case KWTaskSortTypePriority:
            return group == QString::number(row.priority);
        case KWTaskSortTypeProject:
            return group == row.projectID;
        case KWTaskSortTypeTag:
            return row.tags.isEmpty() ? group.isEmpty() : row.tags.contains(group);
        default:
            return group == positionGroup(places.sectionAt(places.of(row)));
        }
    }

    const QList<KWTaskCategory> &m_sections;
    const ShownList &m_shown;
    QHash<QString, const Row *> m_rows; // by their ids
};

} // namespace

QList<KWTaskCategory> KWTaskCategory::buildCategories(const Rows &with, const ShownList &in,
                                                      KWTaskSortType sortType, bool inKanban,
                                                      bool showPinnedSection)
{
    const SectionPlaces places{in, sortType, {inKanban, showPinnedSection, mixesTasksAndNotes(with)}};
    const RowTree tree{with};
    std::map<SectionPlace, RowOrder::Rows> sections;
    for (const SectionPlace &each : places.standing())
        sections[each];
    for (const Row *each : tree.roots())
        sections[places.of(*each)].push_back(each);

    const RowOrder order{sortType, in.locale};
    QList<KWTaskCategory> categories;
    for (auto &[place, roots] : sections) {
        order.sort(roots, place.zone);
        categories.append(places.sectionAt(place));
        categories.last().setModels(tree.flattened(roots));
    }
    return categories;
}

void KWTaskCategory::resortBySortOrder(QList<KWTaskCategory> &in, const ShownList &shown, ManualOrders &found)
{
    for (KWTaskCategory &each : in)
        if (!each.isPinned()) resort(each, shown.positions.in(each, shown.sortType()));
    ManualOrderFinder orders{in, shown};
    found.hasDuedateSortOrder = orders.finds(KWTaskSortTypeDate);
    found.hasPrioritySortOrder = orders.finds(KWTaskSortTypePriority);
    found.hasProjectSortOrder = orders.finds(KWTaskSortTypeProject);
    found.hasTagSortOrder = orders.finds(KWTaskSortTypeTag);
}

void KWTaskCategory::resortPinnedIfNeeded(QList<KWTaskCategory> &in, const ManualPositions &positions)
{
    for (KWTaskCategory &each : in)
        if (each.isPinned()) resort(each, positions.in(each, KWTaskSortTypePinnedDate));
}

QList<KWTagModel> KWTaskCategory::categoriesSortedByTag(QList<KWTagModel> in, const KWListIdentifier &with)
{
    if (with.type == KWListIdentifierType::Tag) {
        in.removeIf([&with](const KWTagModel &each) {
            return each.name != with.entityID && each.parent != with.entityID;
        });
        std::ranges::stable_partition(in,
                                      [&with](const KWTagModel &each) { return each.name != with.entityID; });
        return in;
    }
    QHash<QString, qsizetype> places;
    for (const KWTagModel &each : std::as_const(in))
        places.insert(each.name, places.size());
    std::ranges::stable_sort(in, {}, [&places](const KWTagModel &each) {
        return std::pair{places.value(each.parent, places.value(each.name)), places.contains(each.parent)};
    });
    return in;
}
