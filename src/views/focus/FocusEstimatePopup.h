#pragma once

#include "focus/FocusPageContent.h"
#include "views/controls/PopupFrame.h"

class Stepper;

/// A small frame over the window that asks how many Pomos and how long a task is thought to take. Enter or
/// the button takes it, Escape goes back; 0 is no estimate.
class FocusEstimatePopup : public PopupFrame {
    Q_OBJECT

public:
    FocusEstimatePopup(const FocusOfTask &focus, QWidget *parent);

    /// Shows it with its corner at `position`, or as near as the screen allows.
    void popUp(const QPoint &position);

Q_SIGNALS:
    void estimated(int pomos, std::chrono::seconds duration);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void take();

    Stepper *m_pomos;
    Stepper *m_hours;
    Stepper *m_minutes;
};
