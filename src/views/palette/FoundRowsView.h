#pragma once

#include "views/palette/FoundRowsModel.h"

#include <QListView>

/// The list below a search field. The field keeps the keyboard and gives it the keys that move, or hands the
/// keyboard over where the list may have the focus.
class FoundRowsView : public QListView {
    Q_OBJECT

public:
    explicit FoundRowsView(const QString &accessibleName, QWidget *parent = nullptr);

    FoundRowsModel &rows() { return m_rows; }
    /// What is selected when the task that was is not among the rows any more.
    enum class InItsPlace { First, Neighbour };
    /// The rows, with the task selected that was.
    void setRows(QList<FoundRow> rows, InItsPlace other = InItsPlace::First);
    /// None for none.
    const FoundRow *current() const;
    bool isFirstCurrent() const { return currentIndex() == m_rows.firstSelectable(); }
    /// Takes keys that move; whether this was one.
    bool takeKey(QKeyEvent &event);

Q_SIGNALS:
    void currentMoved();
    /// The checkbox of a task was clicked.
    void markClicked(const QString &taskID);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void step(int direction, int count);

    FoundRowsModel m_rows;
};
