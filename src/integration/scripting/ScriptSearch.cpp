#include "integration/scripting/ScriptSearch.h"

#include "corvexkit/log/CXLog.h"
#include "integration/scripting/ScriptJson.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/store/FindAll.h"
#include "model/store/KWTaskFinder.h"
#include "model/text/DayText.h"
#include "model/text/DisplayTitle.h"

#include <algorithm>

namespace {

constexpr CXLogger foundLog{u"script"};

QString dayOf(const KWTaskModel &task, const CXClock &clock)
{
    if (!task.startDate) return {};
    const Day day = clock.zone().dayOf(*task.startDate);
    const bool isOfThisYear = dateOf(day).year() == dateOf(clock.today()).year();
    return isOfThisYear ? DayText::dayAndMonth(day, QLocale{}) : DayText::dayMonthAndYear(day, QLocale{});
}

QString statusOf(const KWTaskModel &task)
{
    if (task.status == KWTaskStatusCompleted) return KWSmartProject::completed().displayName();
    if (task.status == KWTaskStatusAbandoned) return KWSmartProject::abandoned().displayName();
    return {};
}

QString nameOf(const KWProject *list)
{
    if (!list) return {};
    return list->isInbox() ? KWSmartProject::inbox().displayName() : (*list)->name;
}

} // namespace

bool ScriptSearch::isPossible() const
{
    return m_with.kit.account().isSignedIn() && !m_with.kit.manager().needsMigration();
}

Result<QList<KWTaskModel>> ScriptSearch::find(const QString &text, int limit) const
{
    QList<KWTaskModel> tasks;
    if (!isPossible() || text.size() > longestText) return tasks;
    const Result<void> read =
        KWCoreDataService{m_with.kit.manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            const auto found =
                KWTaskFinder::fetchAllSearing(text, m_with.kit.account().currentUserID(), limit, context);
            if (!found) return found.error();
            tasks = cx_MTL_modelsFromManagedObjects(*found);
            return {};
        });
    tasks.removeIf([this](const KWTaskModel &each) { return m_with.lists.isHidden(each.sid); });
    if (!read) return read.error();
    return tasks;
}

QList<FoundTask> ScriptSearch::show(const QString &text, int limit) const
{
    return readShown([&](ObjectContext &) { return find(text, limit); });
}

QList<FoundTask> ScriptSearch::show(const QStringList &taskIDs) const
{
    return readShown([&](ObjectContext &context) -> Result<QList<KWTaskModel>> {
        QList<KWTaskModel> tasks = cx_MTL_modelsFromManagedObjects(findAll<KWTask>(taskIDs, context));
        tasks.removeIf([this](const KWTaskModel &each) {
            return each.userID != m_with.kit.account().currentUserID() || each.isTrashed ||
                   m_with.lists.isHidden(each.sid);
        });
        return tasks;
    });
}

QList<FoundTask>
ScriptSearch::readShown(const std::function<Result<QList<KWTaskModel>>(ObjectContext &)> &tasks) const
{
    QList<FoundTask> shownTasks;
    if (!isPossible()) return shownTasks;
    const Result<void> read =
        KWCoreDataService{m_with.kit.manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            const Result<QList<KWTaskModel>> found = tasks(context);
            if (!found) return found.error();
            for (const KWTaskModel &each : *found)
                shownTasks.append(shown(each, context));
            return {};
        });
    if (!read) foundLog.error(read.error().sentence);
    return shownTasks;
}

FoundTask ScriptSearch::shown(const KWTaskModel &task, ObjectContext &context) const
{
    QStringList notes{nameOf(context.find<KWProject>(task.projectID)), dayOf(task, context.clock()),
                      statusOf(task)};
    notes.removeAll(QString{});
    return {.id = task.sid,
            .title = displayTitle(task.title),
            .note = notes.join(QStringLiteral(" · ")),
            .isClosed = task.status != KWTaskStatusOpen};
}
