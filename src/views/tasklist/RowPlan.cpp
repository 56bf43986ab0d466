#include "views/tasklist/RowPlan.h"

#include <QHash>

#include <algorithm>

namespace {

using Rows = QList<TaskListRow>;

// Finding the steps between more rows than this takes longer than drawing from scratch.
constexpr int mostRowsCompared = 10'000;

// The part of both lists between the equal rows at the front and at the back.
struct Middle {
    int first = 0;
    int beforeEnd = 0;
    int afterEnd = 0;
};

Middle middleOf(const Rows &before, const Rows &after)
{
    Middle middle{0, int(before.size()), int(after.size())};
    const int shorter = std::min(middle.beforeEnd, middle.afterEnd);
    while (middle.first < shorter && before.at(middle.first).id == after.at(middle.first).id)
        ++middle.first;
    while (middle.beforeEnd > middle.first && middle.afterEnd > middle.first &&
           before.at(middle.beforeEnd - 1).id == after.at(middle.afterEnd - 1).id)
        --middle.beforeEnd, --middle.afterEnd;
    return middle;
}

std::optional<QHash<QString, int>> placesOf(const Rows &rows, int first, int end)
{
    QHash<QString, int> places;
    places.reserve(end - first);
    for (int i = first; i < end; ++i)
        places.insert(rows.at(i).id, i);
    if (places.size() != end - first) return std::nullopt;
    return places;
}

void append(std::vector<RowPlan::Range> &ranges, int row)
{
    if (!ranges.empty() && ranges.back().first + ranges.back().count == row)
        ++ranges.back().count;
    else
        ranges.push_back({row, 1});
}

// Marks a longest increasing run of `values` (patience sorting): the rows that need not move.
std::vector<bool> longestIncreasing(const std::vector<int> &values)
{
    std::vector<int> tails; // index of the smallest last value of a run of each length
    std::vector<int> previous(values.size(), -1);
    for (int i = 0; i < int(values.size()); ++i) {
        const auto place = std::lower_bound(tails.begin(), tails.end(), values[i],
                                            [&](int tail, int value) { return values[tail] < value; });
        if (place != tails.begin()) previous[i] = *std::prev(place);
        if (place == tails.end())
            tails.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> isIn(values.size(), false);
    for (int i = tails.empty() ? -1 : tails.back(); i >= 0; i = previous[i])
        isIn[i] = true;
    return isIn;
}

// `order` holds, for each surviving row in its old order, its place in the new list.
bool planMoves(std::vector<int> order, int offset, std::size_t limit, std::vector<RowPlan::Move> &moves)
{
    const std::vector<bool> stays = longestIncreasing(order);
    std::vector<int> movers;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (!stays[i]) movers.push_back(order[i]);
    if (movers.size() > limit) return false;

    std::vector<int> settled; // ascending
    for (std::size_t i = 0; i < order.size(); ++i)
        if (stays[i]) settled.push_back(order[i]);
    for (const int mover : movers) {
        const auto place = std::lower_bound(settled.begin(), settled.end(), mover);
        const auto from = std::find(order.begin(), order.end(), mover);
        const int fromRow = int(from - order.begin());
        order.erase(from);
        const auto follower =
            place == settled.end() ? order.end() : std::find(order.begin(), order.end(), *place);
        const int toRow = int(follower - order.begin());
        order.insert(follower, mover);
        settled.insert(place, mover);
        if (fromRow != toRow) moves.push_back({offset + fromRow, offset + toRow});
    }
    return true;
}

} // namespace

std::optional<RowPlan> planRows(const Rows &before, const Rows &after, std::size_t limit)
{
    const Middle middle = middleOf(before, after);
    // By far the most frequent changes need no more than this, however long the list.
    if (middle.first == middle.afterEnd && middle.first == middle.beforeEnd) return RowPlan{};
    if (middle.first == middle.afterEnd)
        return RowPlan{
            .removals = {{middle.first, middle.beforeEnd - middle.first}}, .moves = {}, .insertions = {}};
    if (middle.first == middle.beforeEnd)
        return RowPlan{
            .removals = {}, .moves = {}, .insertions = {{middle.first, middle.afterEnd - middle.first}}};

    if (std::max(middle.afterEnd, middle.beforeEnd) - middle.first > mostRowsCompared) return std::nullopt;
    const auto places = placesOf(after, middle.first, middle.afterEnd);
    const auto oldPlaces = placesOf(before, middle.first, middle.beforeEnd);
    if (!places || !oldPlaces) return std::nullopt;

    RowPlan plan;
    std::vector<int> order;
    for (int i = middle.first; i < middle.beforeEnd; ++i) {
        if (const auto place = places->find(before.at(i).id); place != places->end())
            order.push_back(*place);
        else
            append(plan.removals, i);
    }
    std::reverse(plan.removals.begin(), plan.removals.end());
    for (int i = middle.first; i < middle.afterEnd; ++i)
        if (!oldPlaces->contains(after.at(i).id)) append(plan.insertions, i);

    if (!planMoves(std::move(order), middle.first, limit, plan.moves)) return std::nullopt;
    if (plan.stepCount() > limit) return std::nullopt;
    return plan;
}
