#pragma once

#include "app/ports/UserNotificationPorts.h"
#include "focus/FocusPorts.h"

/// The messages of focus among those of the desktop. Main thread.
class FocusNotifications : public FocusMessagePort {
public:
    /// `openWindow` brings the program to the front; it may have an activation token.
    FocusNotifications(UserNotificationCenterPort &center, FocusSoundPort &sound,
                       std::function<void(const QString &)> openWindow);

    void show(const FocusMessage &message) override;
    void remove() override;

private:
    UserNotificationCenterPort &m_center;
    FocusSoundPort &m_sound;
    bool m_isShown = false;
};
