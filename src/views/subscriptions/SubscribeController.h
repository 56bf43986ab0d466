#pragma once

#include <QObject>
#include <QPointer>

class CalSubscriptionService;
class SubscribeDialog;
class QWidget;

/// Opens the window in which a calendar is subscribed to, and subscribes. Main thread.
class SubscribeController : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    SubscribeController(CalSubscriptionService &calendars, QWidget &window);

    /// One window at a time: it comes to the front when it is open.
    void open();

private:
    void subscribe();

    CalSubscriptionService &m_calendars;
    QWidget &m_window;
    QPointer<SubscribeDialog> m_dialog;
};
