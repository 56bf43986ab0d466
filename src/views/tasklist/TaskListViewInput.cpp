// How keys, presses and drags are taken by the list of tasks.
#include "views/controls/FocusMark.h"
#include "views/tasklist/DropTarget.h"
#include "views/tasklist/TaskListView.h"
#include "views/tasklist/TaskMimeData.h"
#include "views/tasklist/TaskRowDelegate.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>

namespace {

// What hangs on the pointer: the title, or how many tasks there are.
QPixmap dragPicture(const QString &text, double devicePixelRatio)
{
    const int width = std::min(Painting::pillWidth(text), Metrics::scaled(240));
    QPixmap picture{QSize{width, Metrics::scaled(Metrics::sidebarRow)} * devicePixelRatio};
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter{&picture};
    Painting::pill(painter, {0, 0, width, Metrics::scaled(Metrics::sidebarRow)}, text);
    return picture;
}

} // namespace

void TaskListView::keyPressEvent(QKeyEvent *event)
{
    FocusMark::keyPressed(*this, *event);
    if (state() != EditingState && handleKey(*event)) return;
    QListView::keyPressEvent(event);
}

// The first task, not the header above it.
QModelIndex TaskListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    return action == MoveHome ? taskNear(0) : QListView::moveCursor(action, modifiers);
}

bool TaskListView::handleKey(const QKeyEvent &event)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return false;
    if (event.modifiers() != Qt::NoModifier && event.modifiers() != Qt::KeypadModifier)
        return moveByKey(event);
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        return foldByKey(Qt::Key(event.key()), current);
    case Qt::Key_Space:
        if (const KWTaskListItemModel task = m_model.rowAt(current).task; // the rows may be others then
            task.isHabit() && selectedIDs().isEmpty())
            Q_EMIT habitChecked(task.sid, task.isClosed());
        else if (const auto occurrence = occurrenceAt(current); occurrence && selectedIDs().isEmpty())
            Q_EMIT occurrenceCompleted(*occurrence);
        else if (m_model.isEntry(current))
            toggle(selectedIDs());
        else
            activate(current);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activate(current);
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (m_model.isEntry(current) && !selectedIDs().isEmpty()) Q_EMIT deletionRequested(selectedIDs());
        return true;
    default:
        return false;
    }
}

// Towards the beginning of the line: fold, and from what has nothing to fold to the row above it; towards
// the end: unfold.
bool TaskListView::foldByKey(Qt::Key key, const QModelIndex &current)
{
    const bool folds = (key == Qt::Key_Left) != isRightToLeft();
    const TaskListRow row = m_model.rowAt(current);
    const bool canFold = row.kind == TaskListRow::Kind::Section || row.hasChildren;
    if (canFold && row.isFolded != folds) {
        Q_EMIT foldToggled(row);
    } else if (folds && row.kind == TaskListRow::Kind::Task) {
        for (int above = current.row() - 1; above >= 0; --above) {
            const TaskListRow &each = m_model.rows().at(above);
            if (each.kind == TaskListRow::Kind::Task && each.depth >= row.depth) continue;
            makeCurrent(m_model.index(above));
            break;
        }
    }
    return true;
}

bool TaskListView::moveByKey(const QKeyEvent &event)
{
    const QStringList moving = selectedTasks();
    if (moving.isEmpty() || !m_hindrance) return false;
    switch (event.keyCombination().toCombined()) {
    case (Qt::ALT | Qt::Key_Up).toCombined():
        step(moving, KeyMove::Up);
        return true;
    case (Qt::ALT | Qt::Key_Down).toCombined():
        step(moving, KeyMove::Down);
        return true;
    case (Qt::CTRL | Qt::Key_BracketRight).toCombined():
        Q_EMIT nestRequested(moving);
        return true;
    case (Qt::CTRL | Qt::Key_BracketLeft).toCombined():
        Q_EMIT unnestRequested(moving);
        return true;
    default:
        return false;
    }
}

void TaskListView::step(const QStringList &moving, KeyMove move)
{
    if (const auto place = placeByKey(m_model.rows(), moving, move)) Q_EMIT dropped(moving, *place);
    scrollTo(currentIndex());
}

TaskListView::Spot TaskListView::spotAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) return {};
    const RowPart part = m_delegate->partAt(position, index, visualRect(index), layoutDirection());
    return part == RowPart::None ? Spot{} : Spot{index, part};
}

void TaskListView::setHovered(const Spot &spot)
{
    if (spot == m_hovered) return;
    update(m_hovered.row);
    m_hovered = spot;
    m_delegate->setHovered(spot.row, spot.part);
    update(m_hovered.row);
}

void TaskListView::press(const Spot &spot)
{
    const TaskListRow row = m_model.rowAt(spot.row);
    switch (spot.part) {
    case RowPart::None:
        break;
    case RowPart::Checkbox:
        if (row.task.isHabit()) return Q_EMIT habitChecked(row.task.sid, row.task.isClosed());
        return toggle({row.id});
    case RowPart::Triangle:
    case RowPart::Header:
        return Q_EMIT foldToggled(row);
    case RowPart::Postpone:
        return Q_EMIT postponeRequested(row);
    case RowPart::Add:
        return Q_EMIT sectionAddRequested(row);
    case RowPart::More:
        return openMenu(spot.row, viewport()->mapToGlobal(visualRect(spot.row).center()));
    case RowPart::LoadMore:
        return Q_EMIT moreRequested();
    }
}

void TaskListView::mousePressEvent(QMouseEvent *event)
{
    FocusMark::mousePressed(*this);
    m_pressed = event->button() == Qt::LeftButton ? spotAt(event->position().toPoint()) : Spot{};
    if (!m_pressed.row.isValid()) QListView::mousePressEvent(event);
}

void TaskListView::mouseReleaseEvent(QMouseEvent *event)
{
    const Spot pressed = std::exchange(m_pressed, {});
    if (!pressed.row.isValid())
        QListView::mouseReleaseEvent(event);
    else if (spotAt(event->position().toPoint()) == pressed)
        press(pressed);
}

void TaskListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (spotAt(event->position().toPoint()).row.isValid()) return mousePressEvent(event);
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (m_model.isEntry(index)) open(index);
}

void TaskListView::mouseMoveEvent(QMouseEvent *event)
{
    setHovered(spotAt(event->position().toPoint()));
    if (!m_pressed.row.isValid()) QListView::mouseMoveEvent(event);
}

void TaskListView::leaveEvent(QEvent *event)
{
    setHovered({});
    QListView::leaveEvent(event);
}

void TaskListView::setDropHindrance(Hindrance hindrance)
{
    m_hindrance = std::move(hindrance);
    setAcceptDrops(bool(m_hindrance));
}

void TaskListView::startDrag(Qt::DropActions)
{
    const QStringList taskIDs = selectedTasks();
    if (taskIDs.isEmpty()) return;
    QModelIndexList indexes;
    for (const QString &each : taskIDs)
        indexes.append(m_model.indexOf(each));
    QDrag drag{this};
    drag.setMimeData(m_model.mimeData(indexes));
    const QString text =
        taskIDs.size() > 1 ? tr("%1 tasks").arg(taskIDs.size()) : m_model.rowAt(indexes.first()).task.title;
    drag.setPixmap(dragPicture(text.left(100).simplified(), devicePixelRatioF()));
    drag.exec(Qt::MoveAction);
    setDropTarget({});
}

void TaskListView::dragMoveEvent(QDragMoveEvent *event)
{
    QListView::dragMoveEvent(event); // scrolls near the edges
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    const QStringList moving = TaskMimeData::idsIn(*event->mimeData());
    const QRect row = visualRect(index);
    setDropTarget(moving.isEmpty() || !index.isValid()
                      ? std::nullopt
                      : dropTargetAt(m_model.rows(), index.row(),
                                     double(position.y() - row.top()) / row.height(),
                                     {moving.begin(), moving.end()}));
    m_isDropRefused = m_dropTarget && !m_hindrance(moving, m_dropTarget->place).isEmpty();
    event->setAccepted(m_dropTarget.has_value()); // what is refused says why when it is dropped
}

void TaskListView::dragLeaveEvent(QDragLeaveEvent *event)
{
    setDropTarget({});
    QListView::dragLeaveEvent(event);
}

void TaskListView::dropEvent(QDropEvent *event)
{
    const auto target = m_dropTarget;
    setDropTarget({});
    stopAutoScroll();
    setState(NoState);
    if (!target) return event->ignore();
    event->acceptProposedAction();
    Q_EMIT dropped(TaskMimeData::idsIn(*event->mimeData()), target->place);
}

void TaskListView::setDropTarget(const std::optional<DropTarget> &target)
{
    if (target == m_dropTarget) return;
    m_dropTarget = target;
    viewport()->update();
}
