#include "calendar/CalendarLayout.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <queue>
#include <set>
#include <span>
#include <tuple>

using namespace std::chrono;

namespace {

constexpr int minutesOfDay = 24 * 60;

bool isFocus(const CalendarItem &item) { return item.kind == CalendarItem::Kind::Focus; }

// It ends before it starts where the clocks were set back meanwhile.
LocalTime endOf(const CalendarItem &item) { return std::max(item.start, item.end); }

Day firstDayOf(const CalendarItem &item) { return floor<days>(item.start); }
// What ends at midnight is not on the day that begins then.
Day lastDayOf(const CalendarItem &item)
{
    const LocalTime end = endOf(item);
    return floor<days>(end == item.start ? end : end - 1ms);
}

TimedBox boxOn(int day, Day date, const CalendarItem &item, std::size_t index, int shortestMinutes)
{
    const LocalTime end = endOf(item);
    const LocalTime from = std::max<LocalTime>(item.start, date);
    const LocalTime to = std::min<LocalTime>(end, date + days{1});
    TimedBox box{.item = index,
                 .day = day,
                 .fromMinute = int(floor<minutes>(from - date).count()),
                 .toMinute = int(ceil<minutes>(to - date).count()),
                 .column = 0,
                 .columns = 1,
                 .span = 1,
                 .beginsBefore = item.start<date, .goesOn = end> date + days{1}};
    box.toMinute = std::max(box.toMinute, box.fromMinute + shortestMinutes);
    if (box.toMinute > minutesOfDay) {
        box.fromMinute -= box.toMinute - minutesOfDay;
        box.toMinute = minutesOfDay;
    }
    return box;
}

std::tuple<int, int, std::size_t> rankOf(const TimedBox &box)
{
    return {box.fromMinute, -box.toMinute, box.item};
}

/// The columns of one day: each box takes the first one that is free when it begins. So when one takes a
/// column, all columns before that are taken, and it bounds at most the box in the one just before.
class Columns {
public:
    explicit Columns(std::span<TimedBox> boxes) : m_boxes(boxes) {}

    void place()
    {
        std::ranges::sort(m_boxes, {}, rankOf);
        for (std::size_t i = 0; i < m_boxes.size(); ++i) {
            release(m_boxes[i].fromMinute);
            if (m_taken.empty()) closeCluster(i);
            take(i);
        }
        closeCluster(m_boxes.size());
    }

private:
    void release(int minute)
    {
        while (!m_ends.empty() && m_ends.top().first <= minute) {
            const int column = m_ends.top().second;
            m_ends.pop();
            m_taken.erase(column);
            m_free.insert(column);
        }
    }

    void take(std::size_t index)
    {
        if (m_free.empty()) {
            m_free.insert(int(m_boxIn.size()));
            m_boxIn.push_back(index);
        }
        const int column = *m_free.begin();
        m_free.erase(m_free.begin());
        TimedBox &box = m_boxes[index];
        box.column = column;
        const auto next = m_taken.upper_bound(column);
        box.span = next == m_taken.end() ? 0 : *next - column; // 0: up to the last column
        if (column > 0) m_boxes[m_boxIn[std::size_t(column) - 1]].span = 1;
        m_taken.insert(column);
        m_boxIn[std::size_t(column)] = index;
        m_ends.emplace(box.toMinute, column);
    }

    // What overlaps, directly or through others, shares one width.
    void closeCluster(std::size_t end)
    {
        for (; m_begin < end; ++m_begin) {
            TimedBox &box = m_boxes[m_begin];
            box.columns = int(m_boxIn.size());
            if (box.span == 0) box.span = box.columns - box.column;
        }
        m_boxIn.clear();
        m_free.clear();
    }

    using End = std::pair<int, int>; // minute and column
    std::span<TimedBox> m_boxes;
    std::size_t m_begin = 0; // of the cluster
    std::priority_queue<End, std::vector<End>, std::greater<>> m_ends;
    std::set<int> m_taken;
    std::set<int> m_free;
    std::vector<std::size_t> m_boxIn; // by column, the last one
};

// Boxes that overlap, directly or through others: sessions of focus come to stand behind the other things,
// which keep what width they have free of them.
void putFocusBehind(std::span<TimedBox> cluster, const std::vector<CalendarItem> &items)
{
    const auto ofFocus = [&items](const TimedBox &box) { return isFocus(items[box.item]); };
    int before = 0;
    int behind = 0;
    for (const TimedBox &each : cluster) {
        int &columns = ofFocus(each) ? behind : before;
        columns = std::max(columns, each.columns);
    }
    if (before == 0 || behind == 0) return;
    const auto isBesideFocus = [&](const TimedBox &box) {
        return std::ranges::any_of(cluster, [&](const TimedBox &other) {
            return ofFocus(other) && other.fromMinute < box.toMinute && box.fromMinute < other.toMinute;
        });
    };
    for (TimedBox &each : cluster) {
        const bool isLast = each.column + each.span == each.columns;
        const bool staysBefore = !ofFocus(each) && isBesideFocus(each);
        if (ofFocus(each)) each.column += before;
        each.columns = before + behind;
        if (isLast) each.span = (staysBefore ? before : each.columns) - each.column;
    }
}

void placeColumns(std::vector<TimedBox> &boxes, const std::vector<CalendarItem> &items)
{
    const auto sessions = std::ranges::stable_partition(
        boxes, [&items](const TimedBox &box) { return !isFocus(items[box.item]); });
    Columns{{boxes.begin(), sessions.begin()}}.place();
    Columns{sessions}.place();
    if (sessions.empty()) return;
    std::ranges::sort(boxes, {}, rankOf);
    for (auto begin = boxes.begin(); begin != boxes.end();) {
        auto end = begin;
        for (int until = end->toMinute; end != boxes.end() && (end == begin || end->fromMinute < until);
             ++end)
            until = std::max(until, end->toMinute);
        putFocusBehind({begin, end}, items);
        begin = end;
    }
}

/// The bars of one row of days, each in the first lane that is free on all of its days.
class Lanes {
public:
    int take(int firstDay, int lastDay)
    {
        const std::uint8_t wanted = std::uint8_t((2u << lastDay) - (1u << firstDay));
        std::size_t &lane = m_next[std::size_t(firstDay)][std::size_t(lastDay)];
        while (lane < m_takenDays.size() && m_takenDays[lane] & wanted)
            ++lane;
        if (lane == m_takenDays.size()) m_takenDays.push_back(0);
        m_takenDays[lane] |= wanted;
        return int(lane);
    }

private:
    std::vector<std::uint8_t> m_takenDays; // by lane
    // By the first and the last day: lanes only fill up, so none above is free any more.
    std::array<std::array<std::size_t, 7>, 7> m_next{};
};

std::vector<std::size_t> longestFirst(std::vector<std::size_t> chosen, const std::vector<CalendarItem> &items)
{
    const auto rank = [&items](std::size_t index) {
        const CalendarItem &item = items[index];
        return std::tuple{isFocus(item), firstDayOf(item) - lastDayOf(item),
                          item.rank(),   !item.isAllDay,
                          item.start,    index};
    };
    std::ranges::sort(chosen, {}, rank);
    return chosen;
}

std::vector<LaneBar> bars(const std::vector<CalendarItem> &items, const std::vector<std::size_t> &chosen,
                          const CalendarPage &page, int daysOfRow)
{
    std::vector<LaneBar> result;
    std::vector<Lanes> rows(std::size_t(page.dayCount / daysOfRow));
    for (const std::size_t index : longestFirst(chosen, items)) {
        const CalendarItem &item = items[index];
        const Day first = std::max(firstDayOf(item), page.firstDay);
        const Day last = std::min(lastDayOf(item), page.endDay() - days{1});
        for (Day day = first; day <= last;) {
            const int from = int((day - page.firstDay).count());
            const int row = from / daysOfRow;
            const Day rowBegin = page.firstDay + days{row * daysOfRow};
            const Day until = std::min(last, rowBegin + days{daysOfRow - 1});
            const int to = int((until - page.firstDay).count());
            result.push_back({.item = index,
                              .firstDay = from,
                              .lastDay = to,
                              .lane = rows[std::size_t(row)].take(from % daysOfRow, to % daysOfRow),
                              .beginsBefore = firstDayOf(item) < rowBegin,
                              .goesOn = lastDayOf(item) > until});
            day = until + days{1};
        }
    }
    return result;
}

} // namespace

std::vector<TimedBox> timedBoxes(const std::vector<CalendarItem> &items, const CalendarPage &page,
                                 int shortestMinutes)
{
    std::vector<std::vector<TimedBox>> ofDays(std::size_t(page.dayCount));
    for (std::size_t i = 0; i < items.size(); ++i) {
        const CalendarItem &item = items[i];
        if (standsInAllDayLane(item)) continue;
        const Day last = std::min(lastDayOf(item), page.endDay() - days{1});
        for (Day date = std::max(firstDayOf(item), page.firstDay); date <= last; date += days{1}) {
            const int day = int((date - page.firstDay).count());
            ofDays[std::size_t(day)].push_back(boxOn(day, date, item, i, shortestMinutes));
        }
    }
    std::vector<TimedBox> boxes;
    for (std::vector<TimedBox> &each : ofDays) {
        placeColumns(each, items);
        boxes.insert(boxes.end(), each.begin(), each.end());
    }
    return boxes;
}

bool standsInAllDayLane(const CalendarItem &item)
{
    return item.isAllDay || (!isFocus(item) && item.end - item.start >= days{1});
}

std::vector<LaneBar> allDayBars(const std::vector<CalendarItem> &items, const CalendarPage &page)
{
    std::vector<std::size_t> chosen;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (standsInAllDayLane(items[i])) chosen.push_back(i);
    return bars(items, chosen, page, page.dayCount);
}

std::vector<LaneBar> monthBars(const std::vector<CalendarItem> &items, const CalendarPage &page)
{
    std::vector<std::size_t> all(items.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return bars(items, all, page, 7);
}
