#pragma once

#include "views/controls/PopupFrame.h"

class FoundRowsView;
class QLineEdit;
struct FoundRow;

/// A frame over the window with one field: what is typed finds lists, tasks and commands. Arrows move, Enter
/// takes, Escape goes back. It is as high as its rows, and gone when it has answered.
class CommandPalette : public PopupFrame {
    Q_OBJECT

public:
    explicit CommandPalette(QWidget &window);

    FoundRowsView &rows() { return *m_rows; }
    QString text() const;
    void popUp();

Q_SIGNALS:
    void typed(const QString &text);
    /// Only a row that can be used.
    void chosen(const FoundRow &row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeCurrent();
    void fitRows();

    QLineEdit *m_field;
    FoundRowsView *m_rows;
};
