// What a day has more than there is room for, and what was dropped and is not told of yet.
#include "views/calendar/CalendarView.h"
#include "views/calendar/DayPopover.h"
#include "views/calendar/ItemDays.h"

#include <algorithm>

using namespace std::chrono;

bool CalendarView::isCounted(std::size_t item) const
{
    return std::ranges::find(m_places.items, item, &ItemPlace::item) == m_places.items.end();
}

const MorePlace *CalendarView::counterOf(std::size_t item) const
{
    if (!isCounted(item)) return nullptr;
    const CalendarPlaces alone = placesOf(m_content.items[item]);
    if (alone.items.empty()) return nullptr;
    const ItemPlace &place = alone.items.front();
    const ItemDays days = ItemDays::of(m_content.items[item]);
    const MorePlace *counter = nullptr;
    for (const MorePlace &each : m_places.more) {
        const bool isBeside =
            each.bounds.top() <= place.bounds.bottom() && each.bounds.bottom() >= place.bounds.top();
        if (each.shape != place.shape || !days.hold(each.day)) continue;
        if (place.shape == ItemPlace::Shape::Box && !isBeside) continue;
        if (!counter || each.day == m_spot.day) counter = &each;
    }
    return counter;
}

std::vector<CalendarItem> CalendarView::listOf(Day day) const
{
    std::vector<CalendarItem> items;
    for (const std::size_t each : itemsOn(day))
        items.push_back(m_content.items[each]);
    return items;
}

void CalendarView::openMore(const MorePlace &more, std::optional<std::size_t> current)
{
    const QRect bounds = visual(more.bounds & areaOf(more.shape));
    const QRect counter{viewport()->mapToGlobal(bounds.topLeft()), bounds.size()};
    const Day day = more.day;
    m_spot.day = day;
    if (!current) setSelected(std::nullopt);
    viewport()->update();
    m_popover = new DayPopover{day, m_look.colorBy, this};
    m_popover->setItems(listOf(day));
    const std::vector<std::size_t> items = itemsOn(day);
    if (const auto found = std::ranges::find(items, current); found != items.end())
        m_popover->setCurrent(std::size_t(found - items.begin()));
    connect(m_popover, &DayPopover::opened, this, [this, counter](const CalendarItem &item) {
        if (const auto index = indexOf(item)) select(*index);
        Q_EMIT m_edits.openRequested(item, counter);
    });
    connect(m_popover, &DayPopover::completed, this,
            [this](const CalendarItem &item) { actOn(item, &CalendarEdits::completeRequested); });
    connect(m_popover, &DayPopover::deleted, this,
            [this](const CalendarItem &item) { actOn(item, &CalendarEdits::deleteRequested); });
    connect(m_popover, &DayPopover::dayOpened, this, [this, day] { Q_EMIT dayOpened(day); });
    connect(m_popover, &DayPopover::carried, this,
            [this, day](const CalendarItem &item, const QPoint &point) { carry(item, day, point); });
    connect(m_popover, &DayPopover::carryingGivenUp, this, &CalendarView::giveDragUp);
    connect(m_popover, &DayPopover::dropped, this, &CalendarView::endDrag);
    m_popover->popUp(counter);
}

void CalendarView::actOn(const CalendarItem &item, void (CalendarEdits::*request)(const CalendarItem &))
{
    if (const auto index = indexOf(item)) select(*index);
    Q_EMIT(m_edits.*request)(item);
}

void CalendarView::refreshPopover()
{
    if (!m_popover) return;
    m_content.page.holds(m_popover->day()) ? m_popover->setItems(listOf(m_popover->day()))
                                           : void(m_popover->close());
}

// A drag that another widget hears of.
void CalendarView::carry(const CalendarItem &item, Day day, const QPoint &point)
{
    if (!m_drag) {
        CalendarSpot from{.day = day, .time = {}};
        const bool hasHours = m_content.page.kind != CalendarPage::Kind::Month;
        if (hasHours && !standsInAllDayLane(item)) {
            from.day = ItemDays::of(item).first;
            from.time = floor<minutes>(item.start - from.day);
        }
        m_drag = Drag{.kind = Drag::Kind::Move, .pressedAt = {}, .from = from, .item = item};
    }
    const QPoint inside = viewport()->mapFromGlobal(point);
    if (viewport()->rect().contains(inside) && spotAt(visual(inside))) return drag(inside);
    m_drag->there.reset();
    viewport()->update();
}

void CalendarView::giveDragUp()
{
    m_drag.reset();
    viewport()->update();
}

void CalendarView::setDropAsked(bool isAsked)
{
    if (m_held) m_held->isAsked = isAsked;
}

void CalendarView::letGoOfDrop()
{
    m_held.reset();
    viewport()->update();
}
