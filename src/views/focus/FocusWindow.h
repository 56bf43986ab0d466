#pragma once

#include "views/focus/FocusToolWindow.h"

#include <QPoint>

#include <optional>

class KWUserDefaults;

/// The small window of focus: dragged by any place that is no button, and shown again where it was left.
class FocusWindow : public FocusToolWindow {
    Q_OBJECT

public:
    /// Both outlive it.
    FocusWindow(FocusPresenter &presenter, KWUserDefaults &defaults);

    /// Shows it with the mode that runs, or ran last.
    void bringUp();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void restorePlace();

    KWUserDefaults &m_defaults;
    std::optional<QPoint> m_grip; // where it is held
};
