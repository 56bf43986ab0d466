#pragma once

#include <QString>
#include <QStringList>

enum class LaunchCause {
    Person,      ///< somebody started the program or opened a link
    LoginItem,   ///< the desktop started it with the session
    Diagnostics, ///< the menu of its icon asked for diagnostic data
    AddTask,     ///< a task is to be typed, without the main window
};

/// What one start of the program asks for; the first process of a data folder gets the later ones' too.
struct LaunchRequest {
    LaunchCause cause = LaunchCause::Person;
    QStringList links = {};       ///< "orvane://…", to be opened
    QString title = {};           ///< of the task to add, to begin with; may be empty
    QString activationToken = {}; ///< lets a window come to the front (XDG activation), may be empty

    bool operator==(const LaunchRequest &) const = default;

    /// Whether a text is a link that the program may be asked to open.
    static bool isLink(const QString &text)
    {
        return text.startsWith(QLatin1StringView{"orvane://"}, Qt::CaseInsensitive);
    }

    /// For the log: the cause, and the links without their queries, which may carry secrets. No titles.
    QString userInfo() const;
};
