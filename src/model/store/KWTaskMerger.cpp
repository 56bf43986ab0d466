#include "model/store/KWTaskMerger.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskItemTree.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/store/TaskCopies.h"
#include "model/store/TaskPermissions.h"

using namespace Qt::StringLiterals;

namespace {

QString joined(const QString &text, const QString &more, const QString &separator)
{
    return text.isEmpty() || more.isEmpty() ? text + more : text + separator + more;
}

void appendText(KWTask &task, const QString &text)
{
    task.set(task.isChecklistKind() ? &KWTaskModel::desc : &KWTaskModel::content,
             joined(task->description(), text, u"\n\n"_s));
}

// Appends items to the checklist of a task.
class ChecklistEnd {
public:
    explicit ChecklistEnd(KWTask &task) : m_task(task)
    {
        for (const KWChecklistItem *each : task.orderedChecklistItems())
            m_order = (*each)->sortOrder;
    }

    void append(KWChecklistItemModel item)
    {
        item.taskID = m_task.sid();
        item.sortOrder = m_order += KWSortOrderStep;
        m_task.context().insert<KWChecklistItem>(std::move(item));
    }

private:
    KWTask &m_task;
    std::int64_t m_order = 0;
};

KWChecklistItemModel itemOf(const KWTask &task)
{
    KWChecklistItemModel item;
    item.userID = task->userID;
    item.title = task->title;
    if (task->status != KWTaskStatusOpen) { // an item is not abandoned
        item.status = KWTaskStatusCompleted;
        item.completionDate = task->completionDate;
    }
    return item;
}

// A note has no checklist.
void takeIntoNote(KWTask &note, const KWTask &other)
{
    QStringList lines{other->title};
    for (const KWChecklistItem *each : other.orderedChecklistItems())
        lines << u"- "_s + (*each)->title;
    appendText(note, joined(lines.join(u'\n'), other->description(), u"\n"_s));
}

void takeIntoChecklist(KWTask &task, const KWTask &other, ChecklistEnd &end)
{
    end.append(itemOf(other));
    for (const KWChecklistItem *each : other.orderedChecklistItems())
        end.append(freshCopy(each->model()));
    appendText(task, other->description());
}

void takeDates(KWTask &task, const KWTask &other)
{
    task.set(&KWTaskModel::startDate, other->startDate);
    task.set(&KWTaskModel::endDate, other->endDate);
    task.set(&KWTaskModel::isAllDay, other->isAllDay);
    task.set(&KWTaskModel::timeZone, other->timeZone);
    task.set(&KWTaskModel::isFloating, other->isFloating);
    task.set(&KWTaskModel::repeatRule, other->repeatRule);
    task.set(&KWTaskModel::repeatFrom, other->repeatFrom);
    task.set(&KWTaskModel::exDates, other->exDates);
    task.set(&KWTaskModel::reminders, other->reminders);
    task.set(&KWTaskModel::remindTime, other->remindTime);
    task.set(&KWTaskModel::snoozedRemindDate, other->snoozedRemindDate);
}

void takeAttributes(KWTask &task, const KWTask &other)
{
    QStringList tags = task->tags + other->tags;
    tags.removeDuplicates();
    task.set(&KWTaskModel::tags, tags);
    task.set(&KWTaskModel::priority, std::max(task->priority, other->priority));
    const bool isEarlier = other->startDate && (!task->startDate || *other->startDate < *task->startDate);
    if (isEarlier && task->repeatRule.isEmpty()) takeDates(task, other);
    copyAttachments(other, task.sid());
}

void takeIn(KWTask &task, const QList<KWTask *> &others)
{
    task.becomeChecklist();
    ChecklistEnd end{task};
    for (KWTask *each : others) {
        if (task.isNoteKind())
            takeIntoNote(task, *each);
        else
            takeIntoChecklist(task, *each, end);
        takeAttributes(task, *each);
    }
}

// Where one of the others is above the task, the task goes up to the place of the highest.
void leaveAncestors(KWTask &task, const QList<KWTask *> &others)
{
    QSet<const KWTask *> passed;
    KWTask *highest = nullptr;
    KWTask *each = &task;
    while (each && !passed.contains(each)) {
        passed.insert(each);
        each = each->hasParent() ? task.context().find<KWTask>((*each)->parentId) : nullptr;
        if (others.contains(each)) highest = each;
    }
    if (!highest) return;
    task.detachFromParent();
    task.attachBehind(*highest);
}

void takeChildren(KWTask &task, const QList<KWTask *> &others)
{
    QStringList childIds = task->childIds;
    for (KWTask *other : others)
        for (KWTask *child : KWTask::children(*other, task.context())) {
            if (child == &task || others.contains(child)) continue;
            for (KWTask *each : KWTaskItemTree::plant(*child, task.context()).flatTasks())
                each->moveToList(task->projectID);
            child->set(&KWTaskModel::parentId, task.sid());
            childIds.append(child->sid());
        }
    task.set(&KWTaskModel::childIds, childIds);
}

} // namespace

Result<UndoToken> KWTaskMerger::merge(const QStringList &taskIDs)
{
    UndoToken token;
    const auto merged = [&](ObjectContext &context) -> Result<void> {
        const QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
        if (tasks.size() < 2) return Error{storeText("Merging takes two tasks or more.")};
        if (const Result<void> allowed = mayChangeOutsideTrash(tasks); !allowed) return allowed;
        KWTask &first = *tasks.first();
        const QList<KWTask *> others = tasks.mid(1);
        takeIn(first, others);
        leaveAncestors(first, others);
        takeChildren(first, others);
        for (KWTask *each : others) {
            each->detachFromParent();
            each->set(&KWTaskModel::isTrashed, true);
        }
        token = UndoToken::of(context);
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(merged);
    if (!saved) return saved.error();
    return token;
}
