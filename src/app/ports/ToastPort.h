#pragma once

#include <QString>

#include <functional>

/// The short messages of a window. Each class is also the window that is not there: nobody sees it.
/// Main thread.
class ToastPort {
public:
    virtual ~ToastPort() = default;
    /// Shows a message with the button "Undo" in place of the one before.
    virtual void showUndo(const QString & /*message*/, std::function<void()> /*undo*/) {}
    /// Says why something could not be done.
    virtual void showFailure(const QString & /*sentence*/) {}
    /// Takes the last message of showUndo() away, if it is still there.
    virtual void endUndo() {}
    /// The keyboard is in the message of showUndo(): it is not the time to take it away.
    virtual bool isUndoHeld() const { return false; }
};
