#pragma once

#include <QAbstractButton>

class MainMenu;

/// The three lines at the head of the sidebar that open the main menu. Main thread.
class MenuButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit MenuButton(QWidget *parent = nullptr);

    /// Until then the button does nothing.
    void setMenu(MainMenu &menu);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void open(MainMenu &menu);
};
