#include "views/calendar/CalendarDrag.h"
#include "views/calendar/CalendarView.h"
#include "views/calendar/ItemDays.h"
#include "views/calendar/TitleField.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>

#include <algorithm>

void CalendarView::keyPressEvent(QKeyEvent *event)
{
    if (m_columns.count() > 0 && takeKey(*event))
        event->accept();
    else
        event->ignore();
}

bool CalendarView::takeKey(const QKeyEvent &key)
{
    const int forwards = isRightToLeft() ? -1 : 1;
    if (key.modifiers() == Qt::AltModifier && (key.key() == Qt::Key_Left || key.key() == Qt::Key_Right)) {
        Q_EMIT pagesTurned(key.key() == Qt::Key_Right ? forwards : -forwards);
        return true;
    }
    if (key.modifiers() & ~Qt::KeypadModifier) return false;
    switch (key.key()) {
    case Qt::Key_Left:
        stepDays(-forwards);
        return true;
    case Qt::Key_Right:
        stepDays(forwards);
        return true;
    case Qt::Key_Up:
        stepItems(-1);
        return true;
    case Qt::Key_Down:
        stepItems(1);
        return true;
    case Qt::Key_PageUp:
        Q_EMIT pagesTurned(-1);
        return true;
    case Qt::Key_PageDown:
        Q_EMIT pagesTurned(1);
        return true;
    case Qt::Key_Escape: {
        const bool isDragging = m_drag.has_value();
        giveDragUp();
        return isDragging;
    }
    case Qt::Key_N:
        createHere();
        return true;
    default:
        return takeItemKey(key.key());
    }
}

bool CalendarView::takeItemKey(int key)
{
    const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!selectedItem()) {
        if (opens) createHere();
        return opens;
    }
    if (const MorePlace *more = counterOf(*m_selected); more && (opens || key == Qt::Key_Space)) {
        openMore(*more, m_selected);
        return true;
    }
    const CalendarItem item = *selectedItem();
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QRect place = boundsOf(*m_selected);
        Q_EMIT m_edits.openRequested(item, {viewport()->mapToGlobal(place.topLeft()), place.size()});
        return true;
    }
    case Qt::Key_Space:
        Q_EMIT m_edits.completeRequested(item);
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT m_edits.deleteRequested(item);
        return true;
    default:
        return false;
    }
}

// Over days that are not shown.
void CalendarView::stepDays(int days)
{
    Day day = m_spot.day;
    constexpr int mostHidden = 7;
    for (int i = 0; i < mostHidden; ++i) {
        day += std::chrono::days{days};
        if (isShown(day)) break;
    }
    goToDay(day);
}

// What is selected there is what is nearest to what was.
void CalendarView::goToDay(Day day)
{
    if (!m_content.page.holds(day)) return Q_EMIT dayLeftFor(day);
    const CalendarItem *before = selectedItem();
    const std::vector<std::size_t> there = itemsOn(day);
    if (!before || there.empty()) return setSpot({.day = day, .time = m_spot.time});
    const auto distance = [&, time = before->start - LocalTime{m_spot.day}](std::size_t index) {
        const auto other = m_content.items[index].start - LocalTime{day};
        return other < time ? time - other : other - time;
    };
    m_spot.day = day;
    select(*std::ranges::min_element(there, {}, distance));
}

void CalendarView::stepItems(int direction)
{
    const std::vector<std::size_t> items = itemsOn(m_spot.day);
    const auto current = m_selected ? std::ranges::find(items, *m_selected) : items.end();
    if (current == items.end()) {
        if (items.empty()) return stepBeyond(direction);
        return select(direction > 0 ? items.front() : items.back());
    }
    const auto next = current - items.begin() + direction;
    if (next >= 0 && next < std::ptrdiff_t(items.size()))
        select(items[std::size_t(next)]);
    else
        stepBeyond(direction);
}

void CalendarView::createHere()
{
    CalendarSpot spot = m_spot;
    if (const CalendarItem *item = selectedItem(); item && !item->isAllDay && spot.time)
        spot.time = std::chrono::floor<std::chrono::minutes>(item->start - ItemDays::of(*item).first);
    openTitle(CalendarDrag::newAt(spot));
}

void CalendarView::openTitle(const CalendarItem &there)
{
    m_made = there;
    reveal();
    m_title = new TitleField{viewport()};
    m_title->setGeometry(titlePlace(there));
    connect(m_title, &TitleField::taken, this,
            [this, there](const QString &title) { Q_EMIT m_edits.createRequested(title, there); });
    connect(m_title, &TitleField::ended, this, [this, field = m_title] {
        const bool hadFocus = field->hasFocus();
        if (m_title == field) {
            m_title = nullptr;
            m_made.reset();
        }
        if (hadFocus) setFocus(Qt::OtherFocusReason);
        viewport()->update();
    });
    m_title->show();
    m_title->setFocus(Qt::OtherFocusReason);
}

// Over what is made, and at least so large that one can read what one types.
QRect CalendarView::titlePlace(const CalendarItem &there) const
{
    const CalendarPlaces places = placesOf(there);
    QRect place =
        places.items.empty() ? QRect{} : places.items.front().bounds & areaOf(places.items.front().shape);
    place.setHeight(m_title->sizeHint().height());
    place.setWidth(std::max(place.width(), Metrics::scaled(120)));
    place.moveRight(std::min(place.right(), viewport()->width() - 1));
    place.moveBottom(std::min(place.bottom(), viewport()->height() - 1));
    return visual(place);
}
