#include "capture/NewTaskWriter.h"

#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FoldedName.h"
#include "model/store/TaskPermissions.h"

#include <algorithm>

Result<QList<KWTaskModel>> NewTaskWriter::write(const QList<NewTaskDraft> &drafts)
{
    QList<KWTaskModel> tasks;
    tasks.reserve(drafts.size());
    for (const NewTaskDraft &each : drafts) {
        Result<KWTaskModel> task = prepared(each);
        if (!task) return task.error();
        tasks.append(*std::move(task));
    }
    place(tasks);
    for (KWTaskModel &each : tasks)
        each = m_context.insert<KWTask>(std::move(each)).model();
    return tasks;
}

Result<KWTaskModel> NewTaskWriter::prepared(const NewTaskDraft &draft)
{
    makeTags(draft);
    const KWProject *project = projectFor(draft);
    if (!project) return Error{KWLocalizedString("The account has no inbox to put the task into.")};
    KWTaskModel task = draft.task;
    if (task.projectID == project->sid()) return task;
    if (!draft.newListName) task.assignee = KWTaskAssignedToNobody;
    task.columnID.clear();
    task.projectID = project->sid();
    return task;
}

void NewTaskWriter::makeTags(const NewTaskDraft &draft)
{
    for (const QString &label : draft.tagLabels) {
        const QString name = KWTag::nameForLabel(label);
        if (m_tags.contains(name)) continue;
        KWTag::createNewTagWithName(label, draft.task.userID, TagUniqueness::MayExist, m_context);
        m_tags.insert(name);
    }
}

KWProject *NewTaskWriter::projectFor(const NewTaskDraft &draft)
{
    const QString &user = draft.task.userID;
    KWProject *project = draft.newListName ? listNamed(*draft.newListName, user)
                                           : m_context.find<KWProject>(draft.task.projectID);
    return mayTakeTasks(project) ? project : KWProject::findInboxOfUser(user, m_context);
}

KWProject *NewTaskWriter::listNamed(const QString &name, const QString &userID)
{
    KWProject *&list = m_lists[foldedName(name)];
    if (!list) list = KWProject::findProjectNamed(name, userID, m_context);
    if (!list) list = &KWProject::createProjectNamed(name, userID, m_context);
    return list;
}

// At the top the last one goes first.
void NewTaskWriter::place(QList<KWTaskModel> &tasks)
{
    const auto placeOne = [this](KWTaskModel &each) { each.sortOrder = nextOrderIn(each.projectID); };
    if (m_end == ListEnd::Bottom)
        std::for_each(tasks.begin(), tasks.end(), placeOne);
    else
        std::for_each(tasks.rbegin(), tasks.rend(), placeOne);
}

std::int64_t NewTaskWriter::nextOrderIn(const QString &projectID)
{
    const auto last = m_lastOrder.find(projectID);
    if (last == m_lastOrder.end())
        return *m_lastOrder.insert(projectID,
                                   m_context.find<KWProject>(projectID)->sortOrderForNewTask(m_end));
    return *last += m_end == ListEnd::Bottom ? KWSortOrderStep : -KWSortOrderStep;
}
