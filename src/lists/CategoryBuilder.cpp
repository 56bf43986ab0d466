#include "lists/RowOrder.h"
#include "lists/RowTree.h"
#include "lists/SectionPlaces.h"

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

// Whether anything has a position.
bool resort(KWTaskCategory &category, const ManualPositions &positions)
{
    const ManualPositions::Positions inside = positions.in(category);
    if (inside.isEmpty()) return false;
    QList<Block> blocks = blocksOf(category.models(), inside);
    const auto firstFree = std::ranges::stable_partition(blocks, [](const Block &each) {
                               return each.position.has_value();
                           }).begin();
    if (firstFree == blocks.begin()) return false;
    std::ranges::stable_sort(blocks.begin(), firstFree, {}, &Block::position);
    Rows sorted;
    for (const Block &each : blocks)
        sorted += category.models().sliced(each.begin, each.end - each.begin);
    category.setModels(std::move(sorted));
    return true;
}

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

void KWTaskCategory::resortBySortOrder(QList<KWTaskCategory> &in, const ManualPositions &positions,
                                       KWTaskSortType sortType, ManualOrders &found)
{
    if (positions.isEmpty()) return;
    bool hasAny = false;
    for (KWTaskCategory &each : in)
        if (!each.isPinned() && resort(each, positions)) hasAny = true;
    found.hasDuedateSortOrder = hasAny && sortType == KWTaskSortTypeDate;
    found.hasPrioritySortOrder = hasAny && sortType == KWTaskSortTypePriority;
    found.hasProjectSortOrder = hasAny && sortType == KWTaskSortTypeProject;
    found.hasTagSortOrder = hasAny && sortType == KWTaskSortTypeTag;
}

void KWTaskCategory::resortPinnedIfNeeded(QList<KWTaskCategory> &in, const ManualPositions &positions)
{
    if (positions.isEmpty()) return;
    for (KWTaskCategory &each : in)
        if (each.isPinned()) resort(each, positions);
}
