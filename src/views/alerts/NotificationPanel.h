#pragma once

#include "app/ports/UserNotificationPorts.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class NotificationCard;
class NotificationWindow;

/// Messages in a small window of our own at the top of the screen, for desktops that show none. It takes
/// no focus, comes with the first message and goes with the last.
class NotificationPanel : public QObject, public UserNotificationCenterPort {
public:
    ~NotificationPanel() override;

    void show(const UserNotification &notification) override;
    void withdraw(const QString &identifier) override;

    /// None while nothing is shown.
    QWidget *window() const;

private:
    void dismiss(const QString &identifier);
    void close(const QString &identifier);

    QPointer<NotificationWindow> m_window;
    QHash<QString, NotificationCard *> m_cards; // by identifier
};
