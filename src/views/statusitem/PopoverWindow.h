#pragma once

#include "views/tasklist/TaskListPane.h"

/// The quick view: a frameless window with the tasks of today and a field to add one. It goes when
/// another window is used, and by Escape.
class PopoverWindow : public TaskListPane {
    Q_OBJECT

public:
    explicit PopoverWindow(CXClock &clock);

    /// Shows it beside `anchor`, the item in the status area; in the middle of the screen without one.
    void popUp(const QRect &anchor);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
};
