#pragma once

#include "app/ports/ToastPort.h"
#include "corvexkit/Result.h"
#include "corvexkit/time/CXClock.h"
#include "model/events/PendingDeletes.h"
#include "model/sync/KWSyncManager.h"

#include <chrono>
#include <optional>

class KWCoreDataManager;
class KWEventBus;

/// Deletes that can be undone: what is to be deleted is hidden at once and deleted when the time of its
/// toast is over, when something else is deleted, at sign-out, and at the end of the program. Until then
/// nothing is written: a program that is killed has deleted nothing. Every change posts
/// delayDeleteStatusChangedNotification. Main thread.
class KWDelayDeleteManager {
public:
    /// How long a delete can be undone; longer while the keyboard is in the toast.
    static constexpr std::chrono::milliseconds undoTime{5000};

    struct Collaborators {
        CXClock &clock;
        KWCoreDataManager &manager;
        KWNotificationCenter &center;
        KWEventBus &bus;
        KWSyncManager &sync;
        ToastPort &toast;
    };
    explicit KWDelayDeleteManager(const Collaborators &collaborators);

    /// Puts the tasks into the trash, later, with all that is below them. Those that are gone are left
    /// out; when one may not be deleted, none is, and a message says why.
    void deleteTasks(const QStringList &taskIDs);
    /// Deletes at once and beyond recall.
    Result<void> deleteTaskAndDescendantsForever(const QString &taskID);
    /// The same delay for events of calendars, which `deleteBlock` deletes.
    void deleteEvents(const QStringList &eventIDs, const QString &title,
                      std::function<Result<void>()> deleteBlock);
    /// The same toast for items of a checklist, in the window `window`: `deleteBlock` is called at once,
    /// and then one of the others, when the time is over or "Undo" is pressed. After that time `undoBlock`
    /// takes back the delete as long as its step is kept.
    void deleteChecklistItemsWithCount(int count, ToastPort &window, const std::function<void()> &deleteBlock,
                                       const std::function<void()> &undoBlock,
                                       std::function<void()> timeoutBlock);

    /// Whether the task waits to be deleted: lists hide it.
    bool containsTask(const QString &taskID) const { return m_tasks.contains(taskID); }
    bool containsEvent(const QString &eventID) const { return m_events.contains(eventID); }
    const QSet<QString> &delayDeletedTaskSet() const { return m_tasks; }
    const QSet<QString> &delayDeletedEventSet() const { return m_events; }
    bool isToastShown() const { return m_pending.has_value(); }

    /// "Undo": what waits is shown again.
    void undo();
    /// Deletes what waits now; nothing happens when nothing does. What cannot be deleted is shown again,
    /// and a message says why.
    void commitPending();

private:
    struct Pending {
        ToastPort *toast;
        std::optional<KWDelayDeleteType> type; ///< none for checklist items
        QStringList ids;
        std::function<Result<void>()> commit;
        std::function<void()> undo;
        std::function<void()> restore{}; ///< what takes back the commit, once it is done
        ToastPort::Offer offer = 0;
    };

    void start(Pending pending, const QString &message);
    void endLater();
    std::optional<Pending> end();
    void post(const Pending &pending, KWDelayDeleteStatus status);
    QSet<QString> &setOf(KWDelayDeleteType type);
    void announce(const QStringList &taskIDs);
    Result<void> trash(const QStringList &rootIDs);

    Collaborators m_with;
    QSet<QString> m_tasks;
    QSet<QString> m_events;
    std::optional<Pending> m_pending;
    ClockCall m_end;
    KWNotificationCenter::Observation m_signOut;
};
