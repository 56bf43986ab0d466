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
    /// From the one that goes on to the one that goes back; the first is the default, the last answers
    /// to Escape and to closing the window. Never empty.
    QStringList buttons;
};

/// Shows the alert and waits. Answers the index of the chosen button. `parent` may be null.
int run(const Content &content, QWidget *parent = nullptr);

} // namespace Alert
