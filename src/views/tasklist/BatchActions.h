#pragma once

#include "model/store/KWTaskTicker.h"
#include "model/store/TaskBatch.h"

#include <QObject>

#include <functional>

class CXClock;
class KWCoreDataManager;
class KWDelayDeleteManager;
class KWNotificationCenter;
class ToastPort;

/// What can be done to the tasks that are selected, whoever asks: a menu, a key, a drag. Each is one save,
/// told with what takes it back. Where `ids` are taken they may be of checklist items, too. Main thread.
class BatchActions : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Rooms {
        KWCoreDataManager &manager;
        KWNotificationCenter &center;
        KWDelayDeleteManager &deletes;
        ToastPort &toasts;
        CXClock &clock;
    };
    explicit BatchActions(const Rooms &rooms);

    /// Completes the open ones; where none is open, reopens them.
    void tick(const QStringList &ids);
    void abandon(const QStringList &taskIDs);
    void setDay(const QStringList &ids, Day day);
    void clearDate(const QStringList &ids);
    void setPriority(const QStringList &taskIDs, KWTaskPriority priority);
    /// `label` is what the tag is called.
    void setTag(const QStringList &taskIDs, const QString &tag, const QString &label,
                TaskBatch::Tagging tagging);
    void setPinned(const QStringList &taskIDs, TaskBatch::Pinning pinning);
    void convert(const QStringList &taskIDs, KWTaskKind kind);
    void moveToList(const QStringList &taskIDs, const QString &listID, const QString &name);
    void merge(const QStringList &taskIDs);
    void duplicate(const QStringList &taskIDs);
    void remove(const QStringList &ids);
    /// To the clipboard: a link or the title of each, line by line.
    void copyLinks(const QStringList &taskIDs) const;
    void copyTitles(const QStringList &ids) const;

    /// Tells what somebody did to them. `message` is for one; of several it says how many.
    void report(const Result<UndoToken> &done, const QStringList &ids, const QString &message);

Q_SIGNALS:
    /// Tasks were changed; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);
    void duplicated(const QStringList &copyIDs);
    void failed(const QString &sentence);

private:
    void reportTick(const Result<KWTaskTicker::Ticked> &done, const QStringList &ids);
    bool haveItems(const QStringList &ids) const;
    void takeBack(const UndoToken &done);

    Rooms m_rooms;
    TaskBatch m_batch;
    KWTaskTicker m_ticker;
};
