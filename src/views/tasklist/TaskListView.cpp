#include "views/tasklist/TaskListView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/tasklist/DropMark.h"
#include "views/tasklist/TaskRowDelegate.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
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
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed);
    setMouseTracking(true);
    setDragEnabled(true);
    setDropIndicatorShown(false);
    setItemDelegate(m_delegate);
    setModel(&m_model);

    connect(m_delegate, &TaskRowDelegate::titleEdited, this, &TaskListView::handOver);
    connect(&m_model, &TaskListModel::rowsAboutToChange, this, &TaskListView::rememberPlace);
    connect(&m_model, &TaskListModel::rowsDidChange, this, &TaskListView::returnToPlace);
    connect(&m_animations, &CheckAnimations::moved, this,
            [this](const QString &sid) { update(m_model.indexOf(sid)); });
    connect(&m_animations, &CheckAnimations::finished, this, [this] {
        if (auto waiting = std::exchange(m_waitingRows, std::nullopt))
            m_model.setRows(std::move(waiting->first), std::move(waiting->second));
    });
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            [this] { scheduleDelayedItemsLayout(); });
}

void TaskListView::setRows(QList<TaskListRow> rows, QList<SectionLook> looks)
{
    if (m_animations.isRunning())
        m_waitingRows = {std::move(rows), std::move(looks)};
    else
        m_model.setRows(std::move(rows), std::move(looks));
}

void TaskListView::setEmptyText(const QString &text, const QString &hint)
{
    m_emptyText = text;
    m_emptyHint = hint;
    viewport()->update();
}

QString TaskListView::currentTask() const
{
    return m_model.isEntry(currentIndex()) ? m_model.rowAt(currentIndex()).task.taskID() : QString{};
}

QString TaskListView::currentID() const
{
    return m_model.isEntry(currentIndex()) ? m_model.rowAt(currentIndex()).id : QString{};
}

QModelIndexList TaskListView::selectedEntries() const
{
    QModelIndexList selected = selectionModel()->selectedIndexes();
    std::sort(selected.begin(), selected.end());
    if (selected.isEmpty() && m_model.isEntry(currentIndex())) selected.append(currentIndex());
    return selected;
}

QStringList TaskListView::selectedIDs() const
{
    QStringList ids;
    for (const QModelIndex &each : selectedEntries())
        if (m_model.rowAt(each).task.isTaskOrItem()) ids.append(m_model.rowAt(each).id);
    return ids;
}

QStringList TaskListView::selectedTasks() const
{
    QStringList sids;
    for (const QModelIndex &each : selectedEntries())
        if (m_model.rowAt(each).isTask()) sids.append(m_model.rowAt(each).id);
    return sids;
}

bool TaskListView::hasSelectedTask() const
{
    const auto isTask = [this](const QModelIndex &each) {
        return m_model.isEntry(each) && m_model.rowAt(each).isTask();
    };
    if (!selectionModel()->hasSelection()) return isTask(currentIndex());
    for (const QItemSelectionRange &each : selectionModel()->selection())
        for (int row = each.top(); row <= each.bottom(); ++row)
            if (isTask(m_model.index(row))) return true;
    return false;
}

void TaskListView::selectTask(const QString &sid) { selectTasks({sid}); }

void TaskListView::selectTasks(const QStringList &sids)
{
    QItemSelection selection;
    QModelIndex first;
    for (const QString &each : sids) {
        const QModelIndex index = m_model.indexOf(each);
        if (!index.isValid()) continue;
        if (!first.isValid()) first = index;
        selection.select(index, index);
    }
    if (!first.isValid()) return;
    makeCurrent(first);
    selectionModel()->select(selection, QItemSelectionModel::Select);
    scrollTo(first);
}

void TaskListView::selectSection(int category)
{
    QStringList sids;
    for (const TaskListRow &each : m_model.rows())
        if (each.kind == TaskListRow::Kind::Task && each.category == category) sids.append(each.id);
    selectTasks(sids);
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

// The task at that row or next to it.
QModelIndex TaskListView::taskNear(int row) const
{
    for (int below = row; below < m_model.rowCount(); ++below)
        if (m_model.isEntry(m_model.index(below))) return m_model.index(below);
    for (int above = std::min(row, m_model.rowCount()) - 1; above >= 0; --above)
        if (m_model.isEntry(m_model.index(above))) return m_model.index(above);
    return {};
}

// The open task there, or the last one above.
QModelIndex TaskListView::openTaskNear(int row) const
{
    const auto isOpen = [this](const QModelIndex &each) {
        return m_model.isEntry(each) && !m_model.rowAt(each).task.isClosed();
    };
    if (const QModelIndex there = taskNear(row); there.isValid() && isOpen(there)) return there;
    for (int above = std::min(row, m_model.rowCount()) - 1; above >= 0; --above)
        if (isOpen(m_model.index(above))) return m_model.index(above);
    return {};
}

// Coming by Tab selects the first task; what is current is what the detail shows.
void TaskListView::focusInEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::MouseFocusReason) makeFirstCurrent();
    QListView::focusInEvent(event);
}

void TaskListView::makeFirstCurrent()
{
    if (currentIndex().isValid()) return;
    if (const QModelIndex first = taskNear(0); first.isValid()) makeCurrent(first);
}

void TaskListView::takeKeyboard()
{
    setFocus(Qt::OtherFocusReason);
    makeFirstCurrent();
    m_waitsForFirst = true;
}

// The tasks that it is below, from the nearest, and the header of its section.
QList<TaskListRow> TaskListView::rowsAround(const QModelIndex &task) const
{
    QList<TaskListRow> rows;
    int depth = m_model.rowAt(task).depth;
    for (int above = task.row() - 1; above >= 0; --above) {
        const TaskListRow &each = m_model.rows().at(above);
        if (each.kind == TaskListRow::Kind::Section) return rows << each;
        if (each.depth >= depth) continue;
        depth = each.depth;
        rows << each;
    }
    return rows;
}

// The row that was folded over the current task; another list may have a section of that name.
QModelIndex TaskListView::foldedAround(const Place &place) const
{
    for (TaskListRow each : place.around) {
        each.isFolded = true;
        const QModelIndex index = m_model.indexOf(each.id);
        if (index.isValid() && m_model.rowAt(index) == each) return index;
    }
    return {};
}

void TaskListView::rememberPlace()
{
    const QModelIndex current = currentIndex();
    const QModelIndex top = indexAt(QPoint{width() / 2, 0});
    m_place = Place{.currentID = current.isValid() ? m_model.rowAt(current).id : QString{},
                    .currentRow = m_model.isEntry(current) ? current.row() : -1,
                    .around = m_model.isEntry(current) ? rowsAround(current) : QList<TaskListRow>{},
                    .selectedIDs = selectedIDs(),
                    .topID = {}};
    const auto *editor = state() == EditingState ? qobject_cast<QLineEdit *>(indexWidget(current)) : nullptr;
    if (editor && editor->isModified()) m_place->typedTitle = editor->text();
    m_place->isItem = m_model.isEntry(current) && m_model.rowAt(current).task.isChecklistItem();
    // A list that shows its beginning goes on showing it.
    if (top.isValid() && verticalScrollBar()->value() > 0) {
        m_place->topID = m_model.rowAt(top).id;
        m_place->topOffset = visualRect(top).top();
    }
}

void TaskListView::returnToPlace()
{
    const Place place = *m_place;
    const bool isAnotherList = std::exchange(m_expectsAnotherList, false);
    const QModelIndex current = m_model.indexOf(place.currentID);
    const bool hasMoved = current.isValid() && current.row() != place.currentRow;
    const bool wasClosed =
        m_closing.remove(place.currentID) && hasMoved && m_model.rowAt(current).task.isClosed();
    if (const QModelIndex next = wasClosed ? openTaskNear(place.currentRow) : QModelIndex{}; next.isValid()) {
        makeCurrent(next); // so that one task after the other is completed
    } else if (current.isValid() && current != currentIndex()) {
        makeCurrent(current);
        for (const QString &each : place.selectedIDs)
            selectionModel()->select(m_model.indexOf(each), QItemSelectionModel::Select);
    } else if (const QModelIndex folded = current.isValid() ? QModelIndex{} : foldedAround(place);
               folded.isValid()) {
        makeCurrent(folded);
    } else if (isAnotherList && !current.isValid()) {
        selectionModel()->clear();
    } else if (place.currentRow >= 0 && !current.isValid() && currentIndex().isValid()) {
        makeCurrent(
            taskNear(place.currentRow)); // the task went: what took its place is selected, not current alone
    }
    if (const QModelIndex top = m_model.indexOf(place.topID); top.isValid()) {
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(verticalScrollBar()->value() + visualRect(top).top() - place.topOffset);
    }
    m_place.reset();
    if (hasFocus() && m_model.rowCount() > 0 &&
        std::exchange(m_waitsForFirst, false)) // later, as one that is looked for in the new rows comes first
        QMetaObject::invokeMethod(this, &TaskListView::makeFirstCurrent, Qt::QueuedConnection);
    setDropTarget({});                               // it names rows by their place
    if (place.typedTitle && state() != EditingState) // the row went, and its editor with it
        QMetaObject::invokeMethod(
            this, [this, place] { handOver(place.currentID, place.isItem, *place.typedTitle); },
            Qt::QueuedConnection);
    const QString before = place.currentRow >= 0 ? place.currentID : QString{};
    if (currentID() != before) Q_EMIT currentTaskChanged(currentTask());
}

void TaskListView::handOver(const QString &id, bool isItem, const QString &title)
{
    m_refusedTitle.clear();
    if (isItem)
        Q_EMIT itemTitleEdited(id, title);
    else
        Q_EMIT titleEdited(id, title);
}

void TaskListView::commitData(QWidget *editor)
{
    m_refusedTitle.clear();
    QListView::commitData(editor);
}

void TaskListView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    if (hint == QAbstractItemDelegate::RevertModelCache) m_refusedTitle.clear();
    QListView::closeEditor(editor, hint);
}

QStringList TaskListView::unsavedTexts()
{
    QWidget *editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr;
    if (editor) commitData(editor);
    return m_refusedTitle.isEmpty() ? QStringList{} : QStringList{m_refusedTitle};
}

// From the event loop: the editor that handed the title over is closing.
void TaskListView::editAgain(const QString &id, const QString &typedTitle)
{
    m_refusedTitle = typedTitle.trimmed();
    const auto open = [this, id, typedTitle] {
        const QModelIndex row = m_model.indexOf(id);
        if (!row.isValid()) return;
        setCurrentIndex(row);
        edit(row);
        auto *line = qobject_cast<QLineEdit *>(indexWidget(row));
        if (!line) return;
        line->setText(typedTitle);
        line->setModified(true);
    };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}

void TaskListView::toggle(const QStringList &sids)
{
    if (sids.isEmpty()) return;
    const auto isClosed = [this](const QString &sid) {
        return m_model.rowAt(m_model.indexOf(sid)).task.isClosed();
    };
    const bool reopens = std::ranges::all_of(sids, isClosed);
    for (const QString &each : sids)
        if (isClosed(each) == reopens)
            m_animations.start(each, reopens ? CheckAnimations::Direction::Unchecking
                                             : CheckAnimations::Direction::Checking);
    if (!reopens && sids == QStringList{currentID()}) m_closing.insert(currentID());
    Q_EMIT completionToggled(sids);
}

// Enter on a row, or a click that is one.
void TaskListView::activate(const QModelIndex &index)
{
    switch (m_model.rowAt(index).kind) {
    case TaskListRow::Kind::Section:
        return Q_EMIT foldToggled(TaskListRow{m_model.rowAt(index)});
    case TaskListRow::Kind::LoadMore:
        return Q_EMIT moreRequested();
    case TaskListRow::Kind::Task:
        return open(index);
    }
}

void TaskListView::open(const QModelIndex &entry)
{
    const KWTaskListItemModel task = m_model.rowAt(entry).task;
    if (task.isHabit()) return Q_EMIT habitOpened(task.sid);
    if (!task.isEvent()) return Q_EMIT opened(task.taskID());
    const QRect row = visualRect(entry);
    Q_EMIT eventOpened(task, {viewport()->mapToGlobal(row.topLeft()), row.size()});
}

std::optional<TaskOccurrence> TaskListView::occurrenceAt(const QModelIndex &index) const
{
    const KWTaskListItemModel &task = m_model.rowAt(index).task;
    if (!m_model.isEntry(index) || !task.isLaterOccurrence()) return std::nullopt;
    return TaskOccurrence{task.taskID(), *task.occurrence};
}

void TaskListView::openMenu(const QModelIndex &index, const QPoint &globalPosition)
{
    const TaskListRow row = m_model.rowAt(index);
    if (row.kind == TaskListRow::Kind::LoadMore || row.task.isEvent() || row.task.isHabit()) return;
    auto *menu = new QMenu{this};
    menu->setObjectName(u"taskMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (row.kind == TaskListRow::Kind::Section) {
        Q_EMIT sectionMenuAboutToShow(*menu, row);
    } else if (const auto occurrence = occurrenceAt(index)) {
        makeCurrent(index);
        Q_EMIT occurrenceMenuAboutToShow(*menu, *occurrence);
    } else {
        if (!selectionModel()->isSelected(index)) makeCurrent(index);
        Q_EMIT menuAboutToShow(*menu, selectedIDs());
    }
    menu->popup(globalPosition);
}

void TaskListView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    openMenu(index, byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

void TaskListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (m_model.rows().isEmpty() && !m_emptyText.isEmpty()) paintEmptyText();
    if (!m_dropTarget) return;
    QPainter painter{viewport()};
    DropMark::paint(painter, *m_dropTarget,
                    m_isDropRefused ? DropMark::Answer::Refused : DropMark::Answer::Taken,
                    visualRect(m_model.index(m_dropTarget->row)), layoutDirection());
}

void TaskListView::paintEmptyText()
{
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
