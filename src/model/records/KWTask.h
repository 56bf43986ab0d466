#pragma once

#include "model/records/KWTaskModel.h"
#include "model/records/ManagedRecord.h"

class KWAttachment;
class KWChecklistItem;
class KWColumn;
class KWFocusSummary;
class KWProject;
struct KWFocusSummaryModel;

/// A task in a context.
class KWTask : public ManagedRecord<KWTaskModel> {
public:
    bool isTextKind() const { return model().kind == KWTaskKindText; }
    bool isChecklistKind() const { return model().kind == KWTaskKindChecklist; }
    bool isNoteKind() const { return model().kind == KWTaskKindNote; }

    bool isCompleted() const { return model().status == KWTaskStatusCompleted; }
    bool isAbandoned() const { return model().status == KWTaskStatusAbandoned; }
    /// Sets the status and, with it, the completion date: now when closed, nothing when open.
    void updateStatus(KWTaskStatus status);

    /// Whether children() are some.
    bool hasChildren() const;
    bool hasParent() const { return !model().parentId.isEmpty(); }
    bool isPinned() const { return model().pinnedDate.has_value(); }
    void pin(Instant date) { set(&KWTaskModel::pinnedDate, date); }
    void unpin() { set(&KWTaskModel::pinnedDate, std::nullopt); }

    /// Open, and its last moment is past: the end of its day for an all-day task, its start or end else.
    bool isOverdue() const;

    /// The owning list, or none when it is gone.
    KWProject *project() const;
    /// The column it stands in on the board of its list; none when it is in none, or that is gone.
    KWColumn *column() const;
    /// What belongs to it and is not deleted, the oldest first.
    QList<KWAttachment *> attachments() const;
    QList<KWFocusSummary *> focusSummaries() const;
    /// Add to what this person has focused on it, never below none; negative numbers take away.
    void addPomoCount(int count, std::int64_t myUserServerID);
    void addPomoDuration(std::int64_t seconds, std::int64_t myUserServerID);
    void addStopwatchDuration(std::int64_t seconds, std::int64_t myUserServerID);
    /// The items not deleted, in their manual order.
    QList<KWChecklistItem *> orderedChecklistItems() const;

    /// The tasks right below it, in its order (see KWTaskItemTree).
    static QList<KWTask *> children(KWTask &parent, ObjectContext &context);
    enum class Closed { Include, LeaveOut };
    /// All tasks below it, parents before their children.
    static QList<KWTask *> descendantTasks(KWTask &task, Closed closed, ObjectContext &context);
    /// Deletes the tasks and all that is below them, with their checklists and attachments, beyond
    /// recall: what the service never knew leaves the store, the rest as soon as it was told.
    static void deleteTaskAndDescendantsForever(const QList<KWTask *> &tasks, ObjectContext &context);

    /// Gives the dates of an all-day or floating task their days and times of day on the wall clock of the
    /// zone now in force, read in the zone in which they were set; of a task that names none, that is
    /// `lastLocalZone`. The dates of the service stay. Answers whether anything changed.
    bool adaptToTimeZoneFromDesignatedToLocalIfNeeded(const CXTimeZone &lastLocalZone);

    /// Gives it that alert, which the next save then does not work out anew.
    void keepAlert(std::optional<Instant> alert);

    /// Puts the tasks and all that is below them into the trash. They keep their list, and their place
    /// below their parents.
    static void trashTaskAndDescendants(const QList<KWTask *> &tasks, ObjectContext &context);

    /// Turns a text task into a checklist task, which keeps its text; others stay as they are.
    void becomeChecklist();
    /// Puts it into the list, out of the column of another one.
    void moveToList(const QString &listID);

    /// Takes it out of its parent; the parent no longer lists it.
    void detachFromParent();
    /// Puts it into the parent of `sibling`, right behind that; nowhere when it has none.
    void attachBehind(const KWTask &sibling);

private:
    void willSave() override;
    bool isModified() const override;
    template <class Number>
    void addToFocus(Number KWFocusSummaryModel::*member, Number amount, std::int64_t userServerID);

    bool m_keepsAlert = false; // until the next save
};
