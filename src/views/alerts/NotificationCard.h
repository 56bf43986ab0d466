#pragma once

#include "app/ports/UserNotificationPorts.h"

#include <QWidget>

class QHBoxLayout;

/// One message of the notification panel: its words, what can be done about it, the ways to put it off in a
/// menu, and a cross. Parted by a hairline from the message above it.
class NotificationCard : public QWidget {
    Q_OBJECT

public:
    explicit NotificationCard(const UserNotification &notification, QWidget *parent = nullptr);

Q_SIGNALS:
    /// The key of an action.
    void chosen(const QString &key);
    void dismissed();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void addActions(const QList<UserNotification::Action> &actions, QHBoxLayout &row);
    void addSnoozes(const QList<UserNotification::Action> &snoozes, QHBoxLayout &row);
};
