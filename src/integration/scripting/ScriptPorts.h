#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWTaskModel.h"

#include <QList>
#include <QStringList>

class ObjectContext;

/// What the commands for other programs reach for outside their room. Each class is also the thing that is
/// not there: it does nothing. Main thread.

/// A section of a list as the middle pane shows it.
struct SmartListSection {
    bool isOfNotes = false;
    QString title{};       ///< empty for one without a header
    QStringList taskIDs{}; ///< of its tasks, in display order; rows that stand for something else left out
};

class SmartListSectionsPort {
public:
    virtual ~SmartListSectionsPort() = default;
    /// The sections of the list in their order, for the user, read in the context.
    virtual Result<QList<SmartListSection>> sections(const KWListIdentifier & /*list*/,
                                                     const QString & /*userID*/, ObjectContext & /*context*/)
    {
        return QList<SmartListSection>{};
    }
    /// Whether the task waits to be deleted: nobody is shown it.
    virtual bool isHidden(const QString & /*taskID*/) const { return false; }
};

/// The engines of focus. Each of the two modes reads as not running while the other is the current one.
class FocusStartPort {
public:
    virtual ~FocusStartPort() = default;
    virtual bool isPomoEnabled() const { return false; }
    virtual bool isPomoRunning() const { return false; }
    /// It runs or is paused.
    virtual bool isStopWatchRunning() const { return false; }
    /// Starts a Pomo of so many seconds; below 1, of the usual length.
    virtual void startPomo(std::int64_t /*seconds*/) {}
};

class UsageEventsPort {
public:
    virtual ~UsageEventsPort() = default;
    virtual void record(int /*category*/, const QString & /*key*/, const QString & /*value*/) {}
};

/// How tasks are made and lists are named, as on the command line.
class TaskToolsPort {
public:
    virtual ~TaskToolsPort() = default;
    /// Saves the task that the typed text means, in the list of that name or id; where that is empty, in the
    /// list that the text or the preferences say.
    virtual Result<KWTaskModel> addTask(const QString & /*text*/, const QString & /*list*/)
    {
        return Error{QStringLiteral("No task can be added.")};
    }
    /// The ids of the open tasks of the list, in display order, the first ones up to the limit.
    virtual Result<QStringList> tasksOfList(const QString & /*list*/, qsizetype /*limit*/)
    {
        return QStringList{};
    }
};

/// The windows of the client.
class ScriptOpenPort {
public:
    virtual ~ScriptOpenPort() = default;
    /// Shows the task in the main window. The token lets that come to the front (XDG activation), may be
    /// empty.
    virtual void openTask(const QString & /*taskID*/, const QString & /*activationToken*/) {}
    /// Shows the search page with that text in its field.
    virtual void openSearch(const QString & /*text*/) {}
};
