#pragma once

#include "views/palette/FoundRowsView.h"

#include <QWidget>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QMenu;

/// The page over the middle column that shows what a search finds, with the words marked: open tasks, then
/// closed ones. Down goes from the field into the hits, where the keys are those of a list: arrows move,
/// Space completes, Delete deletes, the menu key opens the menu of the hit. Up from the first hit goes back,
/// and so does typing. Enter opens the detail, Escape leaves.
class SearchPage : public QWidget {
    Q_OBJECT

public:
    /// Covers the widget while it is shown.
    explicit SearchPage(QWidget &covered);

    void setText(const QString &text);
    QString text() const;
    /// Where the task that was selected is not among them, `other` is.
    void setHits(QList<FoundRow> hits, FoundRowsView::InItsPlace other = FoundRowsView::InItsPlace::First);
    /// Whether there are more than those.
    void setHasMore(bool hasMore);
    FoundRowsView &rows() { return *m_rows; }
    /// The hit that is selected, empty for none.
    QString currentTask() const;

Q_SIGNALS:
    void typed(const QString &text);
    /// Empty for none.
    void currentTaskChanged(const QString &taskID);
    void opened(const QString &taskID);
    void completionToggled(const QString &taskID);
    void deletionRequested(const QString &taskID);
    /// Whoever knows what can be done with the task adds to it.
    void menuAboutToShow(QMenu &menu, const QString &taskID);
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takeFieldKey(QKeyEvent &key);
    bool takeHitKey(QKeyEvent &key);
    void openMenu(const QPoint &position);
    QString emptyText() const;

    QWidget &m_covered;
    QLineEdit *m_field;
    FoundRowsView *m_rows;
    QLabel *m_nothing;
    QLabel *m_more;
};
