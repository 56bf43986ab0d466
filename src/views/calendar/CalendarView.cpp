#include "views/calendar/CalendarView.h"

#include "views/calendar/CalendarAccessible.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/ItemDays.h"
#include "views/calendar/ItemPainter.h"
#include "views/calendar/TitleField.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

CalendarView::CalendarView(CalendarEdits &edits, QWidget *parent)
    : QAbstractScrollArea(parent), m_edits(edits)
{
    CalendarAccessible::install();
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &CalendarView::arrange);
}

void CalendarView::setContent(const CalendarPageContent &content)
{
    const auto selected = selectedItem() ? std::optional{*selectedItem()} : std::nullopt;
    m_content = content;
    m_columns = DayColumns{content.page, m_look.weekends, locale()};
    if (!content.page.holds(m_spot.day))
        m_spot.day = content.page.holds(content.today) ? content.today : content.page.begin;
    m_spot.day = nearestShown(m_spot.day);
    m_selected = selected ? indexOf(*selected) : std::nullopt;
    CalendarAccessible::forgetItems(*this);
    if (m_held && !m_held->isAsked) m_held.reset();
    arrange();
    refreshPopover();
    const auto awaited = m_awaited ? indexOf(*m_awaited) : std::nullopt;
    if (awaited && awaited != m_selected) return select(*awaited);
    if (selected && (!m_selected || *selected != *selectedItem())) Q_EMIT selectionChanged();
}

void CalendarView::setLook(const Look &look)
{
    if (std::exchange(m_look, look) == look) return;
    m_columns = DayColumns{m_content.page, m_look.weekends, locale()};
    m_spot.day = nearestShown(m_spot.day);
    arrange();
}

bool CalendarView::isShown(Day day) const
{
    return DayColumns::show(day, m_content.page.kind, m_look.weekends, locale());
}

Day CalendarView::nearestShown(Day day) const
{
    if (!m_content.page.holds(day)) return day;
    Day next = DayColumns::nextShown(day, m_content.page.kind, m_look.weekends, locale());
    while (next > day && !m_content.page.holds(next))
        --next;
    while (next > m_content.page.firstDay && !isShown(next))
        --next;
    return next;
}

void CalendarView::arrange()
{
    if (m_columns.count() == 0) return; // no page yet
    m_places = layOut();
    if (m_title && m_made) m_title->setGeometry(titlePlace(*m_made));
    viewport()->update();
}

std::optional<std::size_t> CalendarView::indexOf(const CalendarItem &item) const
{
    const auto found = std::ranges::find_if(
        m_content.items, [&item](const CalendarItem &each) { return each.isSameAs(item); });
    if (found == m_content.items.end()) return std::nullopt;
    return std::size_t(found - m_content.items.begin());
}

std::optional<std::size_t> CalendarView::indexOf(const Awaited &awaited) const
{
    const auto found = std::ranges::find_if(m_content.items, [&awaited](const CalendarItem &each) {
        return each.kind != CalendarItem::Kind::ChecklistItem && each.entityID == awaited.id &&
               each.start == awaited.start;
    });
    if (found == m_content.items.end()) return std::nullopt;
    return std::size_t(found - m_content.items.begin());
}

void CalendarView::selectOnceThere(const QString &id, LocalTime start)
{
    m_awaited = Awaited{id, start};
    const auto found = indexOf(*m_awaited);
    if (found) select(*found);
}

// In the order in which the keyboard goes through them: from top to bottom.
std::vector<std::size_t> CalendarView::itemsOn(Day day) const
{
    std::vector<std::size_t> found;
    for (const ItemPlace &each : m_places.items)
        if (ItemDays::of(m_content.items[each.item]).hold(day) &&
            std::ranges::find(found, each.item) == found.end())
            found.push_back(each.item);
    for (std::size_t item = 0; item < m_content.items.size(); ++item) // those that are only counted
        if (ItemDays::of(m_content.items[item]).hold(day) && std::ranges::find(found, item) == found.end())
            found.push_back(item);
    std::ranges::stable_sort(found, {}, [this](std::size_t index) {
        const CalendarItem &item = m_content.items[index];
        const bool isTimed = !item.isAllDay && !standsInAllDayLane(item);
        return std::pair{isTimed, isTimed ? item.start : LocalTime{}};
    });
    return found;
}

const CalendarItem *CalendarView::selectedItem() const
{
    return m_selected ? &m_content.items[*m_selected] : nullptr;
}

void CalendarView::setSelected(std::optional<std::size_t> item)
{
    m_awaited.reset();
    if (std::exchange(m_selected, item) == item) return;
    viewport()->update();
    Q_EMIT selectionChanged();
}

void CalendarView::select(std::size_t item)
{
    const CalendarItem &selected = m_content.items[item];
    const ItemDays days = ItemDays::of(selected);
    if (!days.hold(m_spot.day)) m_spot.day = nearestShown(std::max(days.first, m_content.page.firstDay));
    setSelected(item);
    reveal();
    tellCurrent();
}

void CalendarView::setSpot(const CalendarSpot &spot)
{
    m_spot = spot;
    m_spot.day = nearestShown(spot.day);
    setSelected(std::nullopt);
    viewport()->update();
    reveal();
    tellCurrent();
}

void CalendarView::tellCurrent()
{
    if (hasFocus()) CalendarAccessible::tellCurrent(*this);
}

QRect CalendarView::visual(const QRect &bounds) const
{
    return QStyle::visualRect(layoutDirection(), viewport()->rect(), bounds);
}

QPoint CalendarView::visual(const QPoint &point) const
{
    return QStyle::visualPos(layoutDirection(), viewport()->rect(), point);
}

QRect CalendarView::boundsOf(std::size_t item) const
{
    for (const ItemPlace &each : m_places.items)
        if (each.item == item) return visual(each.bounds & areaOf(each.shape));
    const MorePlace *counter = counterOf(item);
    return counter ? visual(counter->bounds & areaOf(counter->shape)) : QRect{};
}

const ItemPlace *CalendarView::itemAt(const QPoint &point) const
{
    for (auto each = m_places.items.rbegin(); each != m_places.items.rend(); ++each)
        if ((each->bounds & areaOf(each->shape)).contains(point)) return &*each;
    return nullptr;
}

const MorePlace *CalendarView::moreAt(const QPoint &point) const
{
    for (const MorePlace &each : m_places.more)
        if ((each.bounds & areaOf(each.shape)).contains(point)) return &each;
    return nullptr;
}

void CalendarView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    arrange();
}

void CalendarView::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    tellCurrent();
}

void CalendarView::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

bool CalendarView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(visual(help->pos())), viewport());
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

// What is cut on its place is whole in the tip.
QString CalendarView::toolTipAt(const QPoint &point) const
{
    const ItemPlace *place = itemAt(point);
    if (!place || m_drag) return {};
    const CalendarItem &item = m_content.items[place->item];
    return u"<p style='white-space:pre-wrap'>"_s + item.title.toHtmlEscaped() + u"<br>"_s +
           CalendarWording::time(item, locale()).toHtmlEscaped() + u"</p>"_s;
}

void CalendarView::paintEvent(QPaintEvent *)
{
    QPainter painter{viewport()};
    painter.fillRect(viewport()->rect(), Theme::current().window);
    if (m_columns.count() == 0) return;
    paintBehind(painter);
    const bool isDragging = m_drag && m_drag->there && m_drag->item;
    for (const ItemPlace &each : m_places.items) {
        const CalendarItem &item = m_content.items[each.item];
        if (m_held && item.isSameAs(m_held->item)) continue;
        paintItem(painter, each, item, isDragging && item.isSameAs(*m_drag->item));
    }
    for (const MorePlace &each : m_places.more) {
        painter.save();
        painter.setClipRect(areaOf(each.shape));
        const QRect seen = each.bounds & areaOf(each.shape);
        ItemPainter::paintMore(painter, {visual(seen), each.count, each.day}, layoutDirection());
        painter.restore();
    }
    if (m_selected &&
        std::ranges::find(m_places.items, *m_selected, &ItemPlace::item) == m_places.items.end())
        if (const QRect counter = boundsOf(*m_selected); !counter.isEmpty())
            Painting::focusRing(painter, counter, Metrics::pillRadius);
    paintAbove(painter);
    if (m_held) paintAside(painter, m_held->there, {.isSelected = true});
    for (const CalendarItem *ghost : {m_drag && m_drag->there ? &*m_drag->there : nullptr,
                                      m_made ? &*m_made : nullptr, m_dropped ? &*m_dropped : nullptr})
        if (ghost) paintAside(painter, *ghost, {.isSelected = true, .isDragged = true});
}

void CalendarView::paintItem(QPainter &painter, const ItemPlace &place, const CalendarItem &item,
                             bool isDragged) const
{
    painter.save();
    painter.setClipRect(areaOf(place.shape));
    ItemPlace mirrored = place;
    mirrored.bounds = visual(place.bounds);
    const bool isSelected = m_selected == place.item && m_content.items[place.item] == item;
    ItemPainter::paint(painter, mirrored, item,
                       {.isSelected = isSelected, .isDragged = isDragged, .colorBy = m_look.colorBy},
                       layoutDirection());
    painter.restore();
}

void CalendarView::paintAside(QPainter &painter, const CalendarItem &item, ItemPainter::State state) const
{
    state.colorBy = m_look.colorBy;
    for (ItemPlace place : placesOf(item).items) {
        painter.save();
        painter.setClipRect(areaOf(place.shape));
        place.bounds = visual(place.bounds);
        ItemPainter::paint(painter, place, item, state, layoutDirection());
        painter.restore();
    }
}
