#include "views/addfield/TaskPlace.h"

#include "capture/NewTaskDraft.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/TaskPermissions.h"
#include "views/tasklist/TaskDateText.h"

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const KWProject *list)
{
    if (!list) return {};
    return list->isInbox() ? KWSmartProject::inbox().displayName() : (*list)->name;
}

QString placeIn(const QString &list, const KWTaskModel &task, OrvaneKit &kit)
{
    const QString date = dateTextOf(task, kit.clock());
    return date.isEmpty() ? list : list + u" · "_s + date;
}

} // namespace

QString placeOf(const KWTaskModel &task, OrvaneKit &kit)
{
    return placeIn(nameOf(kit.context().find<KWProject>(task.projectID)), task, kit);
}

QString placeOf(const NewTaskDraft &draft, OrvaneKit &kit)
{
    return placeIn(listNameOf(draft, kit), draft.task, kit);
}

QString listNameOf(const NewTaskDraft &draft, OrvaneKit &kit)
{
    if (draft.newListName) return KWLocalizedString("New list “%1”").arg(*draft.newListName);
    const KWProject *list = kit.context().find<KWProject>(draft.task.projectID);
    // A list that is gone, archived or may only be read takes none.
    if (!mayTakeTasks(list)) list = KWProject::findInboxOfUser(draft.task.userID, kit.context());
    return nameOf(list);
}

QString tasksAddedText(qsizetype count)
{
    return count == 1 ? KWLocalizedString("1 task added") : KWLocalizedString("%1 tasks added").arg(count);
}

QString dateTextOf(const KWTaskModel &task, const CXClock &clock)
{
    const QString date =
        detailDateText({task.startDate, task.endDate, task.isAllDay}, clock.now(), clock.zone(), QLocale{})
            .text;
    return date.isEmpty() || task.repeatRule.isEmpty() ? date : KWLocalizedString("%1, repeats").arg(date);
}
