#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// A modal question or message. For what cannot be undone and for trouble at start-up; all else is a
/// toast.
namespace Alert {

struct Content {
    QString title;
    QString text;
    /// From the one that goes on to the one that goes back; the last answers to Escape and to closing
    /// the window. Never empty.
    QStringList buttons;
    /// The index of the one that answers to Enter.
    int defaultButton = 0;
};

/// Shows the alert and waits. Answers the index of the chosen button, that of the last one when the program
/// ends meanwhile. It is never the last window: closing it does not end the program. `parent` may be null.
int run(const Content &content, QWidget *parent = nullptr);

} // namespace Alert
