#include "views/addfield/TaskPlace.h"

#include "capture/NewTaskDraft.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/TaskPermissions.h"
#include "views/tasklist/TaskDateText.h"

using namespace Qt::StringLiterals;

namespace {

QString placeIn(const QString &list, const KWTaskModel &task, OrvaneKit &kit)
{
    const QString date = dateTextOf(task, kit.clock());
    return date.isEmpty() ? list : list + u" · "_s + date;
}

} // namespace

QString placeOf(const KWTaskModel &task, OrvaneKit &kit)
{
    const KWProject *project = kit.context().find<KWProject>(task.projectID);
    return placeIn(project ? (*project)->name : QString{}, task, kit);
}

QString placeOf(const NewTaskDraft &draft, OrvaneKit &kit)
{
    if (draft.newListName)
        return placeIn(KWLocalizedString("New list “%1”").arg(*draft.newListName), draft.task, kit);
    KWTaskModel task = draft.task;
    // A list that is gone, archived or may only be read takes none.
    if (!mayTakeTasks(kit.context().find<KWProject>(task.projectID)))
        task.projectID = KWProject::inboxIDOfUser(task.userID);
    return placeOf(task, kit);
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
