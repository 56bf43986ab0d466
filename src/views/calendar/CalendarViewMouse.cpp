#include "views/calendar/CalendarDrag.h"
#include "views/calendar/CalendarView.h"
#include "views/tasklist/TaskMimeData.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace {

constexpr int lowerEdge = 6;

}

void CalendarView::mousePressEvent(QMouseEvent *event)
{
    const QPoint point = visual(event->pos());
    if (event->button() != Qt::LeftButton || m_columns.count() == 0) return;
    m_drag.reset();
    m_pressedSession.reset();
    if (const MorePlace *more = moreAt(point)) return openMore(*more, std::nullopt);
    const auto spot = spotAt(point);
    if (!spot) return;
    m_drag = Drag{.kind = Drag::Kind::Create, .pressedAt = event->pos(), .from = *spot};
    if (const ItemPlace *place = itemAt(point)) {
        const CalendarItem item = m_content.items[place->item];
        m_drag->kind = isOverLowerEdge(*place, point) ? Drag::Kind::Resize : Drag::Kind::Move;
        m_drag->item = item;
        m_spot.day = spot->day;
        select(place->item);
        if (item.isReadOnly) m_drag.reset();
        if (item.kind == CalendarItem::Kind::Focus) m_pressedSession = item;
    } else {
        setSpot({.day = spot->day, .time = spot->time});
    }
}

bool CalendarView::isOverLowerEdge(const ItemPlace &place, const QPoint &point) const
{
    const bool canGrow = place.shape == ItemPlace::Shape::Box && !place.goesOn &&
                         !m_content.items[place.item].isReadOnly &&
                         m_content.items[place.item].kind != CalendarItem::Kind::ChecklistItem;
    return canGrow && point.y() > place.bounds.bottom() - lowerEdge && place.bounds.height() > 2 * lowerEdge;
}

void CalendarView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) return showCursor(visual(event->pos()));
    if (!m_drag) return;
    const bool begins =
        (event->pos() - m_drag->pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (m_drag->there || begins) drag(event->pos());
}

void CalendarView::showCursor(const QPoint &point)
{
    const ItemPlace *place = itemAt(point);
    viewport()->setCursor(place && isOverLowerEdge(*place, point) ? Qt::SizeVerCursor : Qt::ArrowCursor);
}

void CalendarView::drag(const QPoint &point)
{
    scrollFor(point);
    const auto spot = spotAt(visual(point));
    if (!spot) return;
    switch (m_drag->kind) {
    case Drag::Kind::Move:
        m_drag->there = CalendarDrag::moved(*m_drag->item, m_drag->from, *spot);
        break;
    case Drag::Kind::Resize:
        if (spot->time) m_drag->there = CalendarDrag::resized(*m_drag->item, *spot);
        break;
    case Drag::Kind::Create:
        m_drag->there = CalendarDrag::spanned(m_drag->from, *spot);
    }
    viewport()->update();
}

void CalendarView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) return;
    if (m_drag) return endDrag();
    const auto session = std::exchange(m_pressedSession, std::nullopt);
    const ItemPlace *place = session ? itemAt(visual(event->pos())) : nullptr;
    if (place && m_content.items[place->item].isSameAs(*session)) open(*place);
}

void CalendarView::endDrag()
{
    const Drag ended = *std::exchange(m_drag, std::nullopt);
    viewport()->update();
    if (!ended.there) return;
    if (ended.kind == Drag::Kind::Create) return openTitle(*ended.there);
    if (*ended.there == *ended.item) return;
    m_held = Held{*ended.item, *ended.there};
    Q_EMIT m_edits.moveRequested(*ended.item, *ended.there);
}

void CalendarView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint point = visual(event->pos());
    m_drag.reset();
    if (event->button() != Qt::LeftButton || m_columns.count() == 0) return;
    if (const ItemPlace *place = itemAt(point)) {
        open(*place);
    } else if (const auto spot = spotAt(point)) {
        setSpot(*spot);
        createHere();
    }
}

void CalendarView::open(const ItemPlace &place)
{
    const QRect bounds = boundsOf(place.item);
    Q_EMIT m_edits.openRequested(m_content.items[place.item],
                                 {viewport()->mapToGlobal(bounds.topLeft()), bounds.size()});
}

// By the menu key it opens below what is selected.
void CalendarView::contextMenuEvent(QContextMenuEvent *event)
{
    m_drag.reset();
    if (event->reason() == QContextMenuEvent::Mouse) {
        const ItemPlace *place = itemAt(visual(event->pos()));
        if (!place) return;
        select(place->item);
        return Q_EMIT m_edits.menuRequested(m_content.items[place->item], event->globalPos());
    }
    if (!m_selected) return;
    const QRect bounds = boundsOf(*m_selected);
    Q_EMIT m_edits.menuRequested(*selectedItem(),
                                 viewport()->mapToGlobal(QPoint{bounds.center().x(), bounds.bottom()}));
}

void CalendarView::dragEnterEvent(QDragEnterEvent *event) { dragMoveEvent(event); }

void CalendarView::dragMoveEvent(QDragMoveEvent *event)
{
    m_dropped.reset();
    const bool hasTasks = m_columns.count() > 0 && !TaskMimeData::idsIn(*event->mimeData()).isEmpty();
    if (const auto spot = hasTasks ? spotAt(visual(event->position().toPoint())) : std::nullopt) {
        m_dropped = CalendarDrag::newAt(*spot);
        m_dropped->title = event->mimeData()->text().replace(u'\n', QStringLiteral(", "));
    }
    viewport()->update();
    event->setAccepted(m_dropped.has_value());
}

void CalendarView::dragLeaveEvent(QDragLeaveEvent *)
{
    m_dropped.reset();
    viewport()->update();
}

void CalendarView::dropEvent(QDropEvent *event)
{
    const bool isTaken = std::exchange(m_dropped, std::nullopt).has_value();
    const auto spot = isTaken ? spotAt(visual(event->position().toPoint())) : std::nullopt;
    viewport()->update();
    event->setAccepted(spot.has_value());
    if (spot) Q_EMIT m_edits.scheduleRequested(TaskMimeData::idsIn(*event->mimeData()), *spot);
}
