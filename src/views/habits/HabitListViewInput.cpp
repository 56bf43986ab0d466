// How keys, presses and drags are taken by the list of habits.
#include "views/controls/FocusMark.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitRowDelegate.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString habitMimeType = u"application/x-orvane-habit"_s;

} // namespace

const HabitDay &HabitListView::dayNear(const QModelIndex &index) const
{
    const HabitDay *day = m_model.dayAt(index);
    return day ? *day : m_model.rowAt(index)->today();
}

void HabitListView::keyPressEvent(QKeyEvent *event)
{
    FocusMark::keyPressed(*this, *event);
    if (!handleKey(*event)) QTreeView::keyPressEvent(event);
}

bool HabitListView::handleKey(const QKeyEvent &event)
{
    const QModelIndex current = currentIndex();
    const bool isPlain = event.modifiers() == Qt::NoModifier || event.modifiers() == Qt::KeypadModifier;
    if (isPlain && event.key() == Qt::Key_Insert) {
        Q_EMIT creationRequested(current.isValid() ? m_model.sectionAt(current).sectionID : QString{});
        return true;
    }
    if (!current.isValid()) return false;
    if (isPlain && (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)) {
        stepRow(event.key() == Qt::Key_Up ? -1 : 1);
        return true;
    }
    if (m_model.isSection(current)) return isPlain && handleKeyOnSection(event.key(), current);
    return handleKeyOnHabit(event, current);
}

bool HabitListView::handleKeyOnSection(int key, const QModelIndex &section)
{
    const int folding = isRightToLeft() ? Qt::Key_Right : Qt::Key_Left;
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (isExpanded(section) == (key == folding)) toggleFold(section);
        return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        toggleFold(section);
        return true;
    case Qt::Key_F2:
        openMenu(section, viewport()->mapToGlobal(visualRect(section).center()));
        return true;
    default:
        return false;
    }
}

bool HabitListView::handleKeyOnHabit(const QKeyEvent &event, const QModelIndex &index)
{
    const QString id = currentHabit();
    const Day day = dayNear(index).day;
    const int modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto is = [&](int wantedModifiers, std::initializer_list<int> keys) {
        return modifiers == wantedModifiers && std::ranges::find(keys, event.key()) != keys.end();
    };
    if (is(Qt::NoModifier, {Qt::Key_Left, Qt::Key_Right}))
        return stepDay((event.key() == Qt::Key_Left) == isRightToLeft() ? 1 : -1);
    if (is(Qt::NoModifier, {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}))
        Q_EMIT checkRequested(id, day, false);
    else if (is(Qt::ShiftModifier, {Qt::Key_Space}))
        Q_EMIT checkRequested(id, day, true);
    else if (is(Qt::ControlModifier, {Qt::Key_Return, Qt::Key_Enter}))
        Q_EMIT dayOpened(id, day, placeOf(index));
    else if (is(Qt::AltModifier, {Qt::Key_Return, Qt::Key_Enter}))
        Q_EMIT opened(id);
    else if (is(Qt::NoModifier, {Qt::Key_F2}) || is(Qt::ControlModifier, {Qt::Key_E}))
        Q_EMIT editRequested(id);
    else if (is(Qt::NoModifier, {Qt::Key_Delete, Qt::Key_Backspace}))
        Q_EMIT removalRequested(id);
    else if (is(Qt::AltModifier, {Qt::Key_Up, Qt::Key_Down}))
        moveByKey(event.key() == Qt::Key_Up ? HabitDropPlace::KeyMove::Up : HabitDropPlace::KeyMove::Down);
    else
        return false;
    return true;
}

void HabitListView::stepRow(int rows)
{
    const QModelIndex from = currentIndex().siblingAtColumn(0);
    const QModelIndex next = rows < 0 ? indexAbove(from) : indexBelow(from);
    if (!next.isValid()) return;
    const QModelIndex there = m_model.isSection(next) ? next : next.siblingAtColumn(m_column);
    setCurrentIndex(there);
    scrollTo(there);
}

// From the name on through the days that are shown; before the name, to the section.
bool HabitListView::stepDay(int days)
{
    const QModelIndex current = currentIndex();
    for (int column = current.column() + days; column < HabitListModel::columns; column += days) {
        if (column < 0) {
            setCurrentIndex(current.parent());
            return true;
        }
        if (isColumnHidden(column)) continue;
        setCurrentIndex(current.siblingAtColumn(column));
        return true;
    }
    return true;
}

void HabitListView::toggleFold(const QModelIndex &section)
{
    const QString id = m_model.sectionAt(section).sectionID;
    const bool folds = isExpanded(section);
    folds ? void(m_folded.insert(id)) : void(m_folded.remove(id));
    // What is current would unfold it again.
    if (folds && currentIndex().parent() == section) setCurrentIndex(section);
    setExpanded(section, !folds);
    Q_EMIT foldingChanged();
}

void HabitListView::moveByKey(HabitDropPlace::KeyMove move)
{
    if (const auto place = HabitDropPlace::byKey(m_model, currentIndex(), move))
        Q_EMIT moveRequested(currentHabit(), *place);
}

bool HabitListView::isOnCircle(const QModelIndex &index, const QPoint &position) const
{
    return m_model.dayAt(index) && visualRect(index).contains(position);
}

void HabitListView::mousePressEvent(QMouseEvent *event)
{
    FocusMark::mousePressed(*this);
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    m_pressed = QModelIndex{};
    if (event->button() == Qt::LeftButton && (m_model.isSection(index) || isOnCircle(index, position)))
        m_pressed = index;
    else
        QTreeView::mousePressEvent(event);
}

void HabitListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QModelIndex pressed = std::exchange(m_pressed, {});
    const QPoint position = event->position().toPoint();
    if (!pressed.isValid()) return QTreeView::mouseReleaseEvent(event);
    if (indexAt(position) != pressed) return;
    if (const HabitDay *day = m_model.dayAt(pressed)) {
        const Day clicked = day->day;
        setCurrentIndex(pressed);
        return Q_EMIT dayClicked(currentHabit(), clicked, placeOf(pressed));
    }
    if (HabitRowDelegate::moreIn(rowRect(pressed), layoutDirection()).contains(position))
        openMenu(pressed, event->globalPosition().toPoint());
    else
        toggleFold(pressed.siblingAtColumn(0));
}

void HabitListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const HabitRow *row = m_model.rowAt(index);
    if (!row || m_model.dayAt(index)) return mousePressEvent(event);
    QTreeView::mouseDoubleClickEvent(event);
    Q_EMIT opened(currentHabit());
}

void HabitListView::mouseMoveEvent(QMouseEvent *event)
{
    setHovered(indexAt(event->position().toPoint()).siblingAtColumn(0));
    if (!m_pressed.isValid()) QTreeView::mouseMoveEvent(event);
}

void HabitListView::leaveEvent(QEvent *event)
{
    setHovered({});
    QTreeView::leaveEvent(event);
}

void HabitListView::setHovered(const QModelIndex &row)
{
    if (row == m_hovered) return;
    m_hovered = row;
    m_delegate->setHovered(row);
    viewport()->update();
}

void HabitListView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    if (m_model.rowAt(index)) setCurrentIndex(index);
    openMenu(index, byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

void HabitListView::startDrag(Qt::DropActions)
{
    const QString id = currentHabit();
    if (id.isEmpty() || m_model.shows() == HabitListModel::Shows::Archived) return;
    auto *carried = new QMimeData;
    carried->setData(habitMimeType, id.toUtf8());
    QDrag drag{this};
    drag.setMimeData(carried);
    const QRect row = rowRect(currentIndex());
    drag.setPixmap(viewport()->grab(row));
    drag.setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
    drag.exec(Qt::MoveAction);
    m_drop.reset();
    viewport()->update();
}

void HabitListView::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(event->mimeData()->hasFormat(habitMimeType));
}

void HabitListView::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeView::dragMoveEvent(event); // scrolls near the edges
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position).siblingAtColumn(0);
    const QRect row = visualRect(index);
    m_drop.reset();
    if (index.isValid() && event->mimeData()->hasFormat(habitMimeType)) {
        const double share = double(position.y() - row.top()) / row.height();
        const bool isAbove = !m_model.isSection(index) && share < 0.5;
        if (const auto place = HabitDropPlace::at(m_model, index, share))
            m_drop = {*place, isAbove ? row.top() : row.bottom()};
    }
    event->setAccepted(m_drop.has_value());
    viewport()->update();
}

void HabitListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_drop.reset();
    viewport()->update();
    QTreeView::dragLeaveEvent(event);
}

void HabitListView::dropEvent(QDropEvent *event)
{
    const auto drop = std::exchange(m_drop, std::nullopt);
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    const QString id = QString::fromUtf8(event->mimeData()->data(habitMimeType));
    if (!drop || id.isEmpty()) return event->ignore();
    event->acceptProposedAction();
    if (drop->first.nextHabitID != id) Q_EMIT moveRequested(id, drop->first);
}
