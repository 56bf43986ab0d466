#include "views/tasklist/TaskListView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/tasklist/TaskRowDelegate.h"
#include "views/tasklist/TaskRowLayout.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

TaskListView::TaskListView(TaskListModel &model, QWidget *parent)
    : QListView(parent)
    , m_model(model)
    , m_delegate(
          new TaskRowDelegate{model, [this](const QString &sid) { return m_animations.progress(sid); }, this})
{
    setObjectName(u"taskList"_s);
    setAccessibleName(KWLocalizedString("Tasks"));
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setMouseTracking(true);
    setItemDelegate(m_delegate);
    setModel(&m_model);

    connect(m_delegate, &TaskRowDelegate::titleEdited, this, &TaskListView::titleEdited);
    connect(&m_model, &TaskListModel::rowsAboutToChange, this, &TaskListView::rememberPlace);
    connect(&m_model, &TaskListModel::rowsDidChange, this, &TaskListView::returnToPlace);
    connect(&m_animations, &CheckAnimations::moved, this,
            [this](const QString &sid) { update(m_model.indexOf(sid)); });
    connect(&m_animations, &CheckAnimations::finished, this, [this] {
        if (auto rows = std::exchange(m_waitingRows, std::nullopt)) m_model.setRows(std::move(*rows));
    });
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
}

void TaskListView::setRows(QList<KWTaskListItemModel> rows)
{
    if (m_animations.isRunning())
        m_waitingRows = std::move(rows);
    else
        m_model.setRows(std::move(rows));
}

void TaskListView::setEmptyText(const QString &text, const QString &hint)
{
    m_emptyText = text;
    m_emptyHint = hint;
    viewport()->update();
}

QString TaskListView::currentTask() const
{
    return currentIndex().isValid() ? m_model.rowAt(currentIndex()).sid : QString{};
}

QStringList TaskListView::selectedTasks() const
{
    QModelIndexList selected = selectionModel()->selectedIndexes();
    std::sort(selected.begin(), selected.end());
    QStringList sids;
    for (const QModelIndex &each : std::as_const(selected))
        sids.append(m_model.rowAt(each).sid);
    if (sids.isEmpty() && currentIndex().isValid()) sids.append(currentTask());
    return sids;
}

void TaskListView::selectTask(const QString &sid) { selectTasks({sid}); }

void TaskListView::selectTasks(const QStringList &sids)
{
    bool isFirst = true;
    for (const QString &each : sids) {
        const QModelIndex index = m_model.indexOf(each);
        if (!index.isValid()) continue;
        if (std::exchange(isFirst, false)) {
            makeCurrent(index);
            scrollTo(index);
        } else {
            selectionModel()->select(index, QItemSelectionModel::Select);
        }
    }
}

// Whatever keys are held down meanwhile.
void TaskListView::makeCurrent(const QModelIndex &index)
{
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void TaskListView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QListView::currentChanged(current, previous);
    if (!m_place) Q_EMIT currentTaskChanged(currentTask());
}

// Coming by Tab selects the first row; what is current is what the detail shows.
void TaskListView::focusInEvent(QFocusEvent *event)
{
    if (!currentIndex().isValid() && m_model.rowCount() > 0 && event->reason() != Qt::MouseFocusReason)
        makeCurrent(m_model.index(0));
    QListView::focusInEvent(event);
}

void TaskListView::rememberPlace()
{
    const QModelIndex top = indexAt(QPoint{width() / 2, 0});
    m_place = Place{.currentSid = currentTask(), .selectedSids = selectedTasks(), .topSid = {}};
    // A list that shows its beginning goes on showing it.
    if (top.isValid() && verticalScrollBar()->value() > 0) {
        m_place->topSid = m_model.rowAt(top).sid;
        m_place->topOffset = -visualRect(top).top();
    }
}

void TaskListView::returnToPlace()
{
    const QModelIndex current = m_model.indexOf(m_place->currentSid);
    if (current.isValid() && current != currentIndex())
        selectTasks(QStringList{m_place->currentSid} + m_place->selectedSids);
    if (const QModelIndex top = m_model.indexOf(m_place->topSid); top.isValid()) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(top.row() * visualRect(top).height() + m_place->topOffset);
    }
    const QString before = std::exchange(m_place, std::nullopt)->currentSid;
    if (currentTask() != before) Q_EMIT currentTaskChanged(currentTask());
}

void TaskListView::toggle(const QStringList &sids)
{
    const auto isClosed = [this](const QString &sid) {
        return m_model.rowAt(m_model.indexOf(sid)).isClosed();
    };
    const bool reopens = std::ranges::all_of(sids, isClosed);
    for (const QString &each : sids)
        if (isClosed(each) == reopens)
            m_animations.start(each, reopens ? CheckAnimations::Direction::Unchecking
                                             : CheckAnimations::Direction::Checking);
    Q_EMIT completionToggled(sids);
}

QModelIndex TaskListView::checkboxAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid()) return {};
    constexpr int slack = Metrics::grid + 2; // a comfortable target is larger than the box
    const QRect box = taskRowCheckbox(visualRect(index), layoutDirection());
    return box.adjusted(-slack, -slack, slack, slack).contains(position) ? index : QModelIndex{};
}

void TaskListView::setHoveredCheckbox(const QModelIndex &index)
{
    if (index == m_hoveredCheckbox) return;
    update(m_hoveredCheckbox);
    m_hoveredCheckbox = index;
    m_delegate->setHoveredCheckbox(index);
    update(index);
}

void TaskListView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    if (current.isValid() && event->modifiers() == Qt::NoModifier && state() != EditingState) {
        if (event->key() == Qt::Key_Space) {
            toggle(selectedTasks());
            return;
        }
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            Q_EMIT opened(currentTask());
            return;
        }
        if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
            Q_EMIT deletionRequested(selectedTasks());
            return;
        }
    }
    QListView::keyPressEvent(event);
}

void TaskListView::mousePressEvent(QMouseEvent *event)
{
    m_pressedCheckbox =
        event->button() == Qt::LeftButton ? checkboxAt(event->position().toPoint()) : QModelIndex{};
    if (!m_pressedCheckbox.isValid()) QListView::mousePressEvent(event);
}

void TaskListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QModelIndex pressed = std::exchange(m_pressedCheckbox, QPersistentModelIndex{});
    if (!pressed.isValid())
        QListView::mouseReleaseEvent(event);
    else if (checkboxAt(event->position().toPoint()) == pressed)
        toggle({m_model.rowAt(pressed).sid});
}

void TaskListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (checkboxAt(event->position().toPoint()).isValid()) {
        mousePressEvent(event);
        return;
    }
    QListView::mouseDoubleClickEvent(event);
    if (indexAt(event->position().toPoint()).isValid()) Q_EMIT opened(currentTask());
}

void TaskListView::mouseMoveEvent(QMouseEvent *event)
{
    setHoveredCheckbox(checkboxAt(event->position().toPoint()));
    QListView::mouseMoveEvent(event);
}

void TaskListView::leaveEvent(QEvent *event)
{
    setHoveredCheckbox({});
    QListView::leaveEvent(event);
}

void TaskListView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    if (!selectionModel()->isSelected(index)) makeCurrent(index);
    auto *menu = new QMenu{this};
    menu->setObjectName(u"taskMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Q_EMIT menuAboutToShow(*menu, selectedTasks());
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

void TaskListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (!m_model.rows().isEmpty() || m_emptyText.isEmpty()) return;

    const Theme &theme = Theme::current();
    QPainter painter{viewport()};
    const QRect bounds =
        viewport()->rect().adjusted(Metrics::margin, viewport()->height() / 4, -Metrics::margin, 0);
    painter.setFont(Fonts::font(Fonts::Role::BodyStrong));
    painter.setPen(theme.secondaryText);
    QRect used;
    painter.drawText(bounds, Qt::AlignHCenter | Qt::TextWordWrap, m_emptyText, &used);
    painter.setFont(Fonts::font(Fonts::Role::Body));
    painter.setPen(theme.faintText);
    painter.drawText(bounds.adjusted(0, used.height() + Metrics::grid, 0, 0),
                     Qt::AlignHCenter | Qt::TextWordWrap, m_emptyHint);
}
