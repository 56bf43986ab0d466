#pragma once

#include "model/settings/KWLocalizedString.h"

#include <QString>
#include <QStringList>

#include <functional>

/// What an alert says and which buttons it has, from the one that goes on to the one that goes back. The
/// last one answers to Escape and to closing the window; there is one at least.
struct AlertText {
    QString message;
    QString text;
    QStringList buttons;
    int defaultButton = 0; ///< answers to Enter
    int escapeButton = -1; ///< answers to Escape; -1: the last
    bool operator==(const AlertText &) const = default;
};

/// Questions and messages that a person has to answer. Main thread.
class AlertPort {
public:
    virtual ~AlertPort() = default;
    /// Shows the alert and returns; `answered` hears later, from the event loop, which button was pressed,
    /// counted from 0. Never, when the program ends first.
    virtual void show(const AlertText & /*alert*/, std::function<void(int)> /*answered*/) {}
    /// Shows a message that waits for no answer but “OK”.
    void tell(const QString &message, const QString &text)
    {
        show({.message = message, .text = text, .buttons = {KWLocalizedString("OK")}}, [](int) {});
    }
};
