#pragma once

#include "focus/FocusStretch.h"

#include <QStringList>

#include <functional>

/// What the engines of focus reach for outside their room. Each class is also the thing that is not there:
/// it does nothing. Main thread.

/// A message of the end of a phase, with what can be done about it.
struct FocusMessage {
    struct Action {
        QString key; ///< one of FocusMessages' names
        QString label;
        bool operator==(const Action &) const = default;
    };
    QString title;
    QString subtitle; ///< what was focused on, may be empty
    QList<Action> actions;
    bool operator==(const FocusMessage &) const = default;
};

class FocusMessagePort {
public:
    virtual ~FocusMessagePort() = default;
    /// Takes the place of the one before.
    virtual void show(const FocusMessage & /*message*/) {}
    virtual void remove() {}
    /// The key of the action that was pressed.
    std::function<void(const QString &key)> onAction;
};

/// What is heard when a phase ends.
class FocusSoundPort {
public:
    virtual ~FocusSoundPort() = default;
    /// Whether there is anything that could be heard.
    virtual bool isPresent() const { return false; }
    virtual void play() {}
};

/// The popover of the item in the status area.
class FocusPopoverPort {
public:
    virtual ~FocusPopoverPort() = default;
    /// Which of its pages it has in front; it need not be open.
    virtual void showPomoPage() {}
    virtual void showStopwatchPage() {}
    virtual bool isOpenWithPomoPage() const { return false; }
    virtual bool isOpen() const { return false; }
    virtual void dismiss() {}
    /// Tells in passing that a Pomo has begun.
    virtual void showStarted() {}
};

/// A question with buttons, from the one that goes on to the one that goes back.
struct FocusQuestion {
    QString message;
    QString text;
    QStringList buttons;
    int escapeButton = -1; ///< answers to Escape; -1: the last
    bool operator==(const FocusQuestion &) const = default;
};

class FocusQuestionPort {
public:
    virtual ~FocusQuestionPort() = default;
    /// Brings the program to the front, asks, and returns; `answered` hears the number of the button later.
    virtual void ask(const FocusQuestion & /*question*/, std::function<void(int)> /*answered*/) {}
    /// A sheet on the window of focus, in the same way; nobody can answer it after takeBack().
    virtual void askInWindow(const FocusQuestion & /*question*/, std::function<void(int)> /*answered*/) {}
    virtual void takeBackFromWindow() {}
};

/// Whoever composes the program names the ports it fills. They outlive the engines.
struct FocusPorts {
    FocusMessagePort &messages;
    FocusPopoverPort &popover;
    FocusQuestionPort &questions;

    /// Ports to nobody.
    static FocusPorts none();
};
