#pragma once

#include "views/controls/PaintedButton.h"

class MainMenu;

/// The three lines at the head of the sidebar that open the main menu. Main thread.
class MenuButton : public PaintedButton {
    Q_OBJECT

public:
    explicit MenuButton(QWidget *parent = nullptr);

    /// Until then the button does nothing.
    void setMenu(MainMenu &menu);

    QSize sizeHint() const override;

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void open(MainMenu &menu);
};
