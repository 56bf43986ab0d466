#include "cli/NamedList.h"

#include "capture/NewTaskContextOfList.h"
#include "cli/CommandText.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/store/FoldedName.h"
#include "model/store/KWListDataFetcher.h"

// The user's own lists come first: one may be called "Today".
Result<KWListIdentifier> listNamed(const QString &name, OrvaneKit &kit)
{
    const QString userID = kit.account().currentUserID();
    if (name.startsWith(u'#')) {
        if (const KWTag *tag = KWTag::findTagNamed(name.mid(1), userID, kit.context()))
            return KWListIdentifier::tag(tag->model().name);
    } else {
        if (const KWProject *project = KWProject::findProjectNamed(name, userID, kit.context()))
            return KWListIdentifier::project(project->sid());
        for (const KWSmartProject *each : KWSmartProject::configurable())
            if (each->isListOfTasks() && foldedName(each->displayName()) == foldedName(name))
                return KWListIdentifier::smartProject(each->identifier());
        const KWProject *project = kit.context().find<KWProject>(name);
        if (project && project->isNotDeleted() && !project->isClosed() && (*project)->userID == userID)
            return KWListIdentifier::project(name);
    }
    return Error{commandText("There is no list “%1”.").arg(name)};
}

Result<NewTaskContext> newTaskContextOfListNamed(const QString &name, OrvaneKit &kit)
{
    if (name.isEmpty()) return NewTaskContext{};
    const Result<KWListIdentifier> list = listNamed(name, kit);
    if (!list) return list.error();
    if (!takesNewTasks(*list))
        return Error{commandText("Tasks come into “%1” by themselves; none is added to it.").arg(name)};
    return newTaskContextOf(*list, kit.account().currentUserID(), kit.context());
}

Result<QList<KWTaskListItemModel>> tasksOfListNamed(const QString &name, OrvaneKit &kit, std::int64_t limit)
{
    const Result<KWListIdentifier> list =
        name.isEmpty() ? KWListIdentifier::smartProject(KWSmartProject::all().identifier())
                       : listNamed(name, kit);
    if (!list) return list.error();
    return KWListDataFetcher{kit.clock()}.reloadDataModel(
        {.userID = kit.account().currentUserID(), .selection = *list, .limit = limit},
        kit.context().connection());
}
