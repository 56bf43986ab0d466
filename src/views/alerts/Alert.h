#pragma once

#include "app/ports/AlertPort.h"

class QWidget;

/// A modal question or message. For what cannot be undone and for trouble at start-up; all else is a
/// toast.
namespace Alert {

/// Shows the alert and waits. Answers the index of the chosen button, that of the last one when the program
/// ends meanwhile. It is never the last window: closing it does not end the program. `parent` may be null.
int run(const AlertText &alert, QWidget *parent = nullptr);

/// Shows the alert as a sheet of the window and returns. `answered` hears of the button; nobody does when the
/// sheet is deleted before, which it is with the window.
QWidget *open(const AlertText &alert, QWidget *window, std::function<void(int)> answered);

} // namespace Alert
