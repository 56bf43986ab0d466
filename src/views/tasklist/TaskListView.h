#pragma once

#include "model/store/TaskOccurrences.h"
#include "views/controls/UnsavedTexts.h"
#include "views/tasklist/CheckAnimations.h"
#include "views/tasklist/DropTarget.h"
#include "views/tasklist/RowPart.h"
#include "views/tasklist/TaskListModel.h"

#include <QListView>
#include <QSet>

#include <functional>
#include <optional>

class QMenu;
class TaskRowDelegate;

/// The list of tasks in the middle of the window, in sections; items of checklists stand among them where
/// they have a date, and events, which are selected and opened and nothing else. Several can be selected,
/// with Ctrl, Shift and Ctrl+A. Arrows move, Left and Right fold sections and subtasks, Space completes,
/// Enter opens the detail, F2 edits the title, Delete and Backspace delete, Alt+Up and Alt+Down move tasks,
/// Ctrl+] and Ctrl+[ put them below the one above and take them out. A click on a checkbox completes without
/// selecting.
class TaskListView : public QListView, public UnsavedTextHolder {
    Q_OBJECT

public:
    explicit TaskListView(TaskListModel &model, QWidget *parent = nullptr);

    /// Gives the rows to the model; while a checkbox moves, as soon as it rests, the last given alone.
    /// Selection and scroll position survive, also a reset of the model.
    void setRows(QList<TaskListRow> rows, QList<SectionLook> looks = {});

    /// The rows given next are those of another list: a task that is not among them has no neighbour there.
    void expectAnotherList() { m_expectsAnotherList = true; }

    /// What an empty list says: what it is, and what to do next.
    void setEmptyText(const QString &text, const QString &hint);

    /// Why tasks may not be dropped there, empty where they may. Without it the list takes no drops.
    using Hindrance = std::function<QString(const QStringList &taskIDs, const TaskDropPlace &place)>;
    void setDropHindrance(Hindrance hindrance);

    /// Gives it the keyboard. Where no row is current the first task becomes so, also when it comes later.
    void takeKeyboard();
    /// The task that the detail shows, of an item its task; empty for none, and for an event.
    QString currentTask() const;
    /// All selected tasks and items from top to bottom, without events; the current one where none is.
    QStringList selectedIDs() const;
    /// The tasks among them, and whether there is one.
    QStringList selectedTasks() const;
    bool hasSelectedTask() const;
    /// Opens the row once more with the title that was typed and could not be stored. Nothing happens when it
    /// is not in the list.
    void editAgain(const QString &id, const QString &typedTitle);
    QStringList unsavedTexts() override;
    /// Selects the task and scrolls to it; nothing happens when it is not in the list.
    void selectTask(const QString &sid);
    /// Selects those that are in the list; the first becomes the current one.
    void selectTasks(const QStringList &sids);
    /// All tasks to be seen of a section.
    void selectSection(int category);

Q_SIGNALS:
    void completionToggled(const QStringList &ids);
    void currentTaskChanged(const QString &sid);
    /// Enter or a double click: show the task's detail and go there.
    void opened(const QString &sid);
    /// The same of a habit.
    void habitOpened(const QString &habitID);
    /// Space on a habit or a click on its mark: one check more, or one back when its day is done.
    void habitChecked(const QString &habitID, bool takesBack);
    /// The same of an event; `place` is its row on the screen.
    void eventOpened(const KWTaskListItemModel &event, const QRect &place);
    void titleEdited(const QString &sid, const QString &title);
    void itemTitleEdited(const QString &itemID, const QString &title);
    void deletionRequested(const QStringList &ids);
    /// A row's menu comes: whoever knows what can be done with what is selected adds to it.
    void menuAboutToShow(QMenu &menu, const QStringList &ids);

    /// The same of a later occurrence, which is nothing that is selected with others; Space completes it.
    void occurrenceMenuAboutToShow(QMenu &menu, const TaskOccurrence &occurrence);
    void occurrenceCompleted(const TaskOccurrence &occurrence);

    /// Of a section or of a task with others below it: fold it, or unfold it.
    void foldToggled(const TaskListRow &row);
    /// A button of a section's header.
    void sectionAddRequested(const TaskListRow &section);
    void postponeRequested(const TaskListRow &section);
    void sectionMenuAboutToShow(QMenu &menu, const TaskListRow &section);
    void moreRequested();

    /// Also where the drop is to be refused with a sentence.
    void dropped(const QStringList &taskIDs, const TaskDropPlace &place);
    /// Below the task above; out of the task that they are below.
    void nestRequested(const QStringList &taskIDs);
    void unnestRequested(const QStringList &taskIDs);

protected:
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    // The row at the top of the viewport and how far it is scrolled out of it.
    struct Place {
        QString currentID;
        int currentRow = -1;         ///< of a task
        QList<TaskListRow> around{}; ///< that hide the current task when folded, from the nearest
        QStringList selectedIDs;
        QString topID;
        int topOffset = 0;
        std::optional<QString> typedTitle{}; ///< of the current row, not handed over yet
        bool isItem = false;                 ///< the current row
    };
    void rememberPlace();
    void returnToPlace();
    void makeCurrent(const QModelIndex &index);
    void makeFirstCurrent();
    QList<TaskListRow> rowsAround(const QModelIndex &task) const;
    QModelIndex foldedAround(const Place &place) const;
    QModelIndex openTaskNear(int row) const;
    QModelIndex taskNear(int row) const;
    bool handleKey(const QKeyEvent &event);
    bool foldByKey(Qt::Key key, const QModelIndex &current);
    bool moveByKey(const QKeyEvent &event);
    void step(const QStringList &moving, KeyMove move);
    void activate(const QModelIndex &index);
    void open(const QModelIndex &entry);
    void toggle(const QStringList &ids);
    void handOver(const QString &id, bool isItem, const QString &title);
    QString currentID() const;
    QModelIndexList selectedEntries() const;
    struct Spot {
        QPersistentModelIndex row;
        RowPart part = RowPart::None;
        bool operator==(const Spot &) const = default;
    };
    Spot spotAt(const QPoint &position) const;
    void press(const Spot &spot);
    void setHovered(const Spot &spot);
    /// Nothing where none stands.
    std::optional<TaskOccurrence> occurrenceAt(const QModelIndex &index) const;
    void openMenu(const QModelIndex &index, const QPoint &globalPosition);
    void setDropTarget(const std::optional<DropTarget> &target);
    void paintEmptyText();

    TaskListModel &m_model;
    CheckAnimations m_animations;
    QSet<QString> m_closing; ///< ticked off here, and on their way to another section
    TaskRowDelegate *m_delegate;
    Spot m_pressed;
    Spot m_hovered;
    std::optional<std::pair<QList<TaskListRow>, QList<SectionLook>>> m_waitingRows;
    std::optional<Place> m_place;
    Hindrance m_hindrance;
    std::optional<DropTarget> m_dropTarget;
    bool m_isDropRefused = false;
    QString m_refusedTitle; ///< typed into a row, and not stored
    bool m_expectsAnotherList = false;
    bool m_waitsForFirst = false; ///< the keyboard came, and rows may follow
    QString m_emptyText;
    QString m_emptyHint;
};
