#pragma once

#include "corvexkit/time/CXClock.h"
#include "integration/bridge/JsApiWindow.h"

#include <QDialog>

class Toast;
class WebPane;

/// A window of its own for a page of ours, with a place for messages. It goes when it is closed; a person who
/// closes it is asked about text that would be lost. Main thread.
class PageWindow : public QDialog {
    Q_OBJECT

public:
    /// The clock outlives it.
    PageWindow(const QString &title, CXClock &clock, QWidget *parent);

    WebPane &pane() { return *m_pane; }
    void showMessage(const QString &message);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    bool mayGo();

    CXClock &m_clock;
    WebPane *m_pane;
    Toast *m_toast;
    ClockCall m_toastEnd;
    JsApiWindow m_api;
    bool m_isAsking = false;
};
