#include "views/tasklist/MoveToList.h"

#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FindAll.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/TaskPermissions.h"
#include "views/controls/ChoicePopup.h"
#include "views/tasklist/BatchActions.h"

#include <algorithm>

void askForListOf(const QStringList &taskIDs, BatchActions &actions, KWCoreDataManager &manager,
                  QWidget &window, const QPoint &position)
{
    ObjectContext &context = manager.MR_defaultContext();
    const QList<KWTask *> tasks = findAll<KWTask>(taskIDs, context);
    if (tasks.isEmpty()) return;
    QList<ChoicePopup::Choice> lists;
    QHash<QString, QString> names;
    for (const KWProject *each : KWProject::orderedOpenProjects((*tasks.first())->userID, context)) {
        if (!mayTakeTasks(each)) continue;
        const bool holdsAll = std::ranges::all_of(
            tasks, [each](const KWTask *task) { return (*task)->projectID == each->sid(); });
        names.insert(each->sid(), each->isInbox() ? KWSmartProject::inbox().displayName() : (*each)->name);
        lists.append({each->sid(), names.value(each->sid()), (*each)->color, holdsAll});
    }
    auto *popup = new ChoicePopup{KWLocalizedString("Move to list"), lists, &window};
    QObject::connect(popup, &ChoicePopup::chosen, &actions,
                     [&actions, taskIDs, names](const QString &listID) {
                         actions.moveToList(taskIDs, listID, names.value(listID));
                     });
    popup->popUp(position);
}
