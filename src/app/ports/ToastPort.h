#pragma once

#include <QString>

#include <functional>

/// The short messages of a window. Each class is also the window that is not there: nobody sees it.
/// Main thread.
class ToastPort {
public:
    virtual ~ToastPort() = default;
    /// Which message of showUndo() is meant: none is 0.
    using Offer = int;

    /// Shows a message with the button "Undo" in place of the one before.
    virtual Offer showUndo(const QString & /*message*/, std::function<void()> /*undo*/) { return 0; }
    /// Says why something could not be done.
    virtual void showFailure(const QString & /*sentence*/) {}
    /// Takes the message away, if it is still there. From now on `later` takes back what it was about;
    /// without it that cannot be taken back any more.
    virtual void endUndo(Offer /*offer*/, std::function<void()> /*later*/) {}
    /// The keyboard is in the message: it is not the time to take it away.
    virtual bool isUndoHeld(Offer /*offer*/) const { return false; }
};
