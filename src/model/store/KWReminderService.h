#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/store/KWTaskFinder.h"

#include <QList>

#include <optional>

class KWCoreDataManager;

/// What reminds: a task, an item of its checklist, or a habit.
struct ReminderSubject {
    QString taskID{};  ///< empty for a habit
    QString itemID{};  ///< empty for the task itself
    QString habitID{}; ///< empty for a task
    bool isHabit() const { return !habitID.isEmpty(); }
    bool operator==(const ReminderSubject &) const = default;
};

/// An alert that has come.
struct DueReminder {
    ReminderSubject subject;
    Instant moment; ///< when it was due
    QString title;
    QString taskTitle; ///< of an item, the task it belongs to
    QString listName;
    std::optional<Instant> startDate; ///< none of a habit
    bool isAllDay = false;
    /// Nobody is to be told: its list is muted, archived or deleted, its task is closed, deleted or
    /// somebody else's, its habit is not open on the day of habits on which it came, or that day is over. It
    /// counts as delivered with the others.
    bool isSilent = false;
};

/// The reminders of tasks, checklist items and habits as the store keeps them: each record holds its next
/// alert, and what is due stays so until it is marked as delivered. Main thread.
class KWReminderService {
public:
    explicit KWReminderService(KWCoreDataManager &manager) : m_manager(manager) {}

    /// The first alert after a moment.
    std::optional<Instant> nextRemindTime(const QString &userID, Instant after) const;
    /// The alerts up to `now`, the earliest first. Closed, trashed and deleted records have none.
    QList<DueReminder> due(const TaskOwner &owner, Instant now) const;
    /// One of them as it is now; nothing when it is closed, deleted or in the trash, or a habit that is not
    /// open any more.
    std::optional<DueReminder> reminderOf(const ReminderSubject &subject) const;

    /// Moves these on to their next alert after `now`, in one save.
    Result<void> markDelivered(const QList<DueReminder> &reminders, Instant now);
    /// Makes these due once more, in one save.
    Result<void> markUndelivered(const QList<DueReminder> &reminders);
    /// Reminds again at a moment, besides the reminders that are still to come.
    Result<void> snooze(const ReminderSubject &subject, Instant until);
    /// In the background: gives coming tasks and items of the user the alert that whoever stored them left
    /// out, and habits those of the wall clock in force.
    void planMissing(const QString &userID);

private:
    KWCoreDataManager &m_manager;
};
