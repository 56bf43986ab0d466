#pragma once

#include "views/habits/HabitDropPlace.h"
#include "views/habits/HabitListModel.h"

#include <QSet>
#include <QTreeView>

class HabitRowDelegate;
class QMenu;

/// The list of habits: sections that fold, and in each row the days of the week up to today, as many as there
/// is room for. Up and Down move among rows, Left and Right among the days of a row; Space and Enter check
/// the day in, or today where the keyboard is on the name, Shift+Space takes one check back, Ctrl+Enter opens
/// the day, Alt+Enter the detail. F2 and Ctrl+E edit, Insert makes a habit, Delete deletes, Alt+Up and
/// Alt+Down move. On a section Left and Right, Space and Enter fold. Habits are dragged to another place.
class HabitListView : public QTreeView {
    Q_OBJECT

public:
    explicit HabitListView(HabitListModel &model, QWidget *parent = nullptr);

    void setFoldedSections(const QStringList &sectionIDs);
    QStringList foldedSections() const { return {m_folded.begin(), m_folded.end()}; }

    /// Empty on a section and where nothing is current.
    QString currentHabit() const;
    /// Nothing happens when it is not in the list.
    void selectHabit(const QString &habitID);
    /// Gives it the keyboard; where no row is current the first habit becomes so.
    void takeKeyboard();
    /// On the screen: the circle of the day, of a name that of today.
    QRect placeOf(const QModelIndex &index) const;

Q_SIGNALS:
    /// Empty when it is none.
    void currentHabitChanged(const QString &habitID);
    /// A day was clicked, or opened by the keyboard; `place` is its circle on the screen.
    void dayClicked(const QString &habitID, Day day, const QRect &place);
    void dayOpened(const QString &habitID, Day day, const QRect &place);
    void checkRequested(const QString &habitID, Day day, bool takesBack);
    void opened(const QString &habitID);
    void editRequested(const QString &habitID);
    void creationRequested(const QString &sectionID);
    void removalRequested(const QString &habitID);
    void moveRequested(const QString &habitID, const HabitDropPlace &place);
    void foldingChanged();
    void habitMenuAboutToShow(QMenu &menu, const HabitRow &row, const HabitDay &day, const QRect &place);
    void sectionMenuAboutToShow(QMenu &menu, const HabitSection &section, const QRect &place);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &options,
                 const QModelIndex &index) const override;
    void drawBranches(QPainter *, const QRect &, const QModelIndex &) const override {}
    void paintEvent(QPaintEvent *event) override;

private:
    void rememberPlace();
    void returnToPlace();
    void layOutColumns();
    void layOutSections();
    bool handleKey(const QKeyEvent &event);
    bool handleKeyOnSection(int key, const QModelIndex &section);
    bool handleKeyOnHabit(const QKeyEvent &event, const QModelIndex &index);
    void stepRow(int rows);
    bool stepDay(int days);
    void toggleFold(const QModelIndex &section);
    void moveByKey(HabitDropPlace::KeyMove move);
    /// The day in that column, or today.
    const HabitDay &dayNear(const QModelIndex &index) const;
    QModelIndex firstHabit() const;
    void openMenu(const QModelIndex &index, const QPoint &globalPosition);
    void setHovered(const QModelIndex &row);
    bool isOnCircle(const QModelIndex &index, const QPoint &position) const;
    QRect rowRect(const QModelIndex &index) const;

    struct Place {
        QString habitID;
        QString sectionID;
        int column = 0;
        int scroll = 0;
    };
    HabitListModel &m_model;
    HabitRowDelegate *m_delegate;
    QSet<QString> m_folded;
    Place m_place;
    bool m_isResetting = false;
    int m_column = 0; // in which the keyboard is, also while it passes a section
    QPersistentModelIndex m_pressed;
    QPersistentModelIndex m_hovered;                      // in the first column
    std::optional<std::pair<HabitDropPlace, int>> m_drop; // with the height at which it is marked
};
