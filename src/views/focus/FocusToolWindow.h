#pragma once

#include "model/records/KWConstants.h"

#include <QWidget>

class FocusPanel;
class FocusPresenter;
class QHBoxLayout;

/// A small frameless window that stays on top and shows the session that runs. Escape hides it; that stops
/// nothing.
class FocusToolWindow : public QWidget {
    Q_OBJECT

public:
    /// The presenter outlives it.
    explicit FocusToolWindow(FocusPresenter &presenter);

    FocusPanel &panel() { return *m_panel; }

protected:
    FocusPresenter &presenter() { return m_presenter; }
    /// The row above the panel.
    QHBoxLayout &head() { return *m_head; }

    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    FocusPresenter &m_presenter;
    FocusPanel *m_panel;
    QHBoxLayout *m_head;
};
