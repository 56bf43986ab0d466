#include "views/taskdetail/TaskDetailReader.h"

#include "focus/FocusReader.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "model/store/KWTaskEditor.h"
#include "model/store/TaskPermissions.h"

namespace {

QList<TaskDetailData::Member> membersOf(const KWProject &list)
{
    QList<TaskDetailData::Member> members;
    if (!list->isShared) return members;
    const QList<KWTeamworker *> found = list.context().fetch<KWTeamworker>(
        {.where = "projectID = ? AND isDeleted = 0", .values = {list.sid()}});
    for (const KWTeamworker *each : KWTeamworker::sortedByName(found))
        members.append({(*each)->userServerID, (*each)->name});
    return members;
}

void readList(const KWProject &list, TaskDetailData &data)
{
    data.listName = list.isInbox() ? KWSmartProject::inbox().displayName() : list->name;
    data.listColor = list->color;
    data.members = membersOf(list);
}

void readTags(const KWTagCache &tags, TaskDetailData &data)
{
    for (const QString &name : data.task.tags)
        if (tags.contains(name)) data.tagLabels.insert(name, tags.labelOf(name));
    for (const QString &name : tags.names())
        if (!data.task.tags.contains(name)) data.tagChoices.append(tags.labelOf(name));
}

} // namespace

std::optional<TaskDetailData> readTaskDetail(const QString &taskID, const KWTaskEditor &editor,
                                             OrvaneKit &kit)
{
    const std::optional<TaskWithParts> found = editor.read(taskID);
    if (!found) return std::nullopt;
    TaskDetailData data;
    data.task = found->task;
    data.items = found->items;
    data.subtasks = found->subtasks;
    data.attachments = found->attachments;
    ObjectContext &context = kit.context();
    data.mayChange = bool(mayChange(context.find<KWTask>(taskID)));
    if (const KWProject *list = context.find<KWProject>(data.task.projectID)) readList(*list, data);
    const KWTask *parent = data.task.parentId.isEmpty() ? nullptr : context.find<KWTask>(data.task.parentId);
    if (parent && parent->isNotDeleted()) data.parentTitle = (*parent)->title;
    readTags(kit.tags(), data);
    data.focus = FocusReader::readTask(taskID, context).value_or(FocusOfTask{});
    return data;
}
