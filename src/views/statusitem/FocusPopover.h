#pragma once

#include "views/focus/FocusToolWindow.h"

class SegmentedControl;

/// The page of focus behind the item in the status area. It goes when another window is used.
class FocusPopover : public FocusToolWindow {
    Q_OBJECT

public:
    explicit FocusPopover(FocusPresenter &presenter);

    void showMode(KWFocusType mode);
    /// Shows it beside `anchor`; in the middle of the screen without one.
    void popUp(const QRect &anchor);

Q_SIGNALS:
    /// The other page.
    void todayRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    SegmentedControl *m_modes;
};
