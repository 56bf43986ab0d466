#pragma once

#include <QMenuBar>
#include <QPointer>

class MainMenu;

/// The menu bar, hidden until Alt alone or F10 is pressed in its window, and again when it has served.
class HiddenMenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// Filled when it is first shown.
    HiddenMenuBar(MainMenu &menu, QWidget &window);

    /// Shows the bar with its first menu selected, or hides it.
    void toggle();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void putAway();
    void putAwayWhenDone();

    MainMenu &m_menu;
    bool m_isAltAlone = false;
    QPointer<QWidget> m_focusBefore;
};
