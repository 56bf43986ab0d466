#pragma once

#include <QString>

/// Where diagnostic data and summaries go on the desktop. Each class is also the program that is not there:
/// it does nothing. Main thread; nothing here waits for the person.

class FileManagerPort {
public:
    virtual ~FileManagerPort() = default;
    /// Opens the folder of `file` with that file marked, where the desktop can. Whether anything was opened.
    virtual bool showItem(const QString & /*file*/) { return true; }
};

class MailPort {
public:
    virtual ~MailPort() = default;
    /// Opens a new e-mail with `attachment`, where the desktop can.
    virtual void compose(const QString & /*subject*/, const QString & /*attachment*/) {}
    /// Opens a new e-mail with `text` in it. Whether one was opened.
    virtual bool composeText(const QString & /*subject*/, const QString & /*text*/) { return false; }
};
