#pragma once

#include "app/ports/AlertPort.h"
#include "app/ports/RelaunchPort.h"
#include "app/ports/UserNotificationPorts.h"

/// Keeps what alerts were shown; a test presses a button by calling `answer`.
struct RecordingAlerts final : AlertPort {
    void show(const AlertText &alert, std::function<void(int)> answered) override
    {
        messages << alert.message;
        last = alert;
        answer = std::move(answered);
    }
    QStringList messages;
    AlertText last;
    std::function<void(int)> answer;
};

/// Keeps the titles of the messages shown.
struct RecordingNotifications final : UserNotificationCenterPort {
    void show(const UserNotification &notification) override { titles << notification.title; }
    QStringList titles;
};

struct CountingRelaunch final : RelaunchPort {
    void cx_relunch() override { ++count; }
    int count = 0;
};
