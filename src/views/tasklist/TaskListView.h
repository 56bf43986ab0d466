#pragma once

#include "views/tasklist/CheckAnimations.h"
#include "views/tasklist/TaskListModel.h"

#include <QListView>

#include <optional>

class QMenu;
class TaskRowDelegate;

/// The list of tasks in the middle of the window. Several can be selected, with Ctrl, Shift and Ctrl+A.
/// Arrows move, Space completes, Enter opens the detail, F2 edits the title, Delete and Backspace delete; a
/// click on a checkbox completes without selecting.
class TaskListView : public QListView {
    Q_OBJECT

public:
    explicit TaskListView(TaskListModel &model, QWidget *parent = nullptr);

    /// Gives the rows to the model; while a checkbox moves, as soon as it rests, the last given alone.
    /// Selection and scroll position survive, also a reset of the model.
    void setRows(QList<KWTaskListItemModel> rows);

    /// What an empty list says: what it is, and what to do next.
    void setEmptyText(const QString &text, const QString &hint);

    /// The task that the detail shows, empty for none.
    QString currentTask() const;
    /// All selected ones from top to bottom; the current one where none is.
    QStringList selectedTasks() const;
    /// Selects the task and scrolls to it; nothing happens when it is not in the list.
    void selectTask(const QString &sid);
    /// Selects those that are in the list; the first becomes the current one.
    void selectTasks(const QStringList &sids);

Q_SIGNALS:
    void completionToggled(const QStringList &sids);
    void currentTaskChanged(const QString &sid);
    /// Enter or a double click: show the task's detail and go there.
    void opened(const QString &sid);
    void titleEdited(const QString &sid, const QString &title);
    void deletionRequested(const QStringList &sids);
    /// A row's menu comes: whoever knows what can be done with the selected tasks adds to it.
    void menuAboutToShow(QMenu &menu, const QStringList &sids);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void rememberPlace();
    void returnToPlace();
    void makeCurrent(const QModelIndex &index);
    void toggle(const QStringList &sids);
    QModelIndex checkboxAt(const QPoint &position) const;
    void setHoveredCheckbox(const QModelIndex &index);

    // The row at the top of the viewport and how far it is scrolled out of it.
    struct Place {
        QString currentSid;
        QStringList selectedSids;
        QString topSid;
        int topOffset = 0;
    };

    TaskListModel &m_model;
    CheckAnimations m_animations;
    TaskRowDelegate *m_delegate;
    QPersistentModelIndex m_pressedCheckbox;
    QPersistentModelIndex m_hoveredCheckbox;
    std::optional<QList<KWTaskListItemModel>> m_waitingRows;
    std::optional<Place> m_place;
    QString m_emptyText;
    QString m_emptyHint;
};
