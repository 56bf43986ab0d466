#pragma once

#include <QList>
#include <QString>

#include <functional>

/// A message outside the program's windows, with what can be done about it.
struct UserNotification {
    struct Action {
        QString key; ///< "default" is what a click on the message itself does
        QString label;
        bool operator==(const Action &) const = default;
    };

    enum class Sound { AsUsual, None };

    /// A later one of the same identifier takes its place.
    QString identifier;
    QString title;
    QString body; ///< plain text, may have several lines
    QList<Action> actions;
    Sound sound = Sound::AsUsual;
    QString imagePath{}; ///< of a picture that stands beside it, empty for none
    bool operator==(const UserNotification &) const = default;
};

/// Where such messages are shown. Main thread.
class UserNotificationCenterPort {
public:
    struct Response {
        QString identifier;
        QString action;
        QString activationToken; ///< lets a window come to the front (XDG activation), may be empty
    };

    virtual ~UserNotificationCenterPort() = default;
    virtual void show(const UserNotification & /*notification*/) {}
    /// Takes a message away that is shown, or on its way.
    virtual void withdraw(const QString & /*identifier*/) {}

    /// An action was pressed.
    std::function<void(const Response &)> onResponse;
    /// The message has gone, by itself or because somebody closed it.
    std::function<void(const QString &identifier)> onClosed;
};
