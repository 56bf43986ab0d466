#pragma once

#include <QWidget>

class FoundRowsView;
class QLabel;
class QLineEdit;
struct FoundRow;

/// The page over the middle column that shows what a search finds, with the words marked: open tasks, then
/// closed ones. Arrows move, Enter opens the detail, Escape leaves.
class SearchPage : public QWidget {
    Q_OBJECT

public:
    /// Covers the widget while it is shown.
    explicit SearchPage(QWidget &covered);

    void setText(const QString &text);
    QString text() const;
    void setHits(QList<FoundRow> hits);
    FoundRowsView &rows() { return *m_rows; }

Q_SIGNALS:
    void typed(const QString &text);
    /// Empty for none.
    void currentTaskChanged(const QString &taskID);
    void opened(const QString &taskID);
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString currentTask() const;

    QWidget &m_covered;
    QLineEdit *m_field;
    FoundRowsView *m_rows;
    QLabel *m_nothing;
};
