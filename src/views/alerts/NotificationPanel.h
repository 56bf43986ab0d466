#pragma once

#include "app/ports/UserNotificationPorts.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

class QVBoxLayout;

/// Messages in a small window of our own at the top of the screen, for desktops that show none. It takes
/// no focus, comes with the first message and goes with the last.
class NotificationPanel : public QObject, public UserNotificationCenterPort {
public:
    ~NotificationPanel() override;

    void show(const UserNotification &notification) override;
    void withdraw(const QString &identifier) override;

    /// None while nothing is shown.
    QWidget *window() const { return m_window; }

private:
    QWidget *makeCard(const UserNotification &notification);
    void close(const QString &identifier);
    void place();

    QPointer<QWidget> m_window;
    QHash<QString, QWidget *> m_cards; // by identifier
};
