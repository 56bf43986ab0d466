#include "focus/FocusTargetChoices.h"

#include "focus/FocusTargetTitle.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/ObjectContext.h"

#include <algorithm>

namespace {

QString colorOf(const FocusTarget &target, ObjectContext &context)
{
    if (target.kind == FocusTarget::Kind::Habit) {
        const KWHabit *habit = context.find<KWHabit>(target.entityID);
        return habit ? (*habit)->color : QString{};
    }
    const KWTask *task = context.find<KWTask>(target.taskID());
    const KWProject *list = task ? task->project() : nullptr;
    return list ? (*list)->color : QString{};
}

} // namespace

FocusTargetChoice lookOf(const FocusTarget &target, ObjectContext &context)
{
    if (target.isNone()) return {};
    return {.target = target, .title = titleOf(target, context), .color = colorOf(target, context)};
}

QList<FocusTargetChoice> focusTargetChoices(const QString &userID, ObjectContext &context)
{
    QHash<QString, QString> colors; // of open lists, by id
    for (const KWProject *each : KWProject::findProjectsOfUser(userID, ProjectScope::Open, context))
        colors.insert(each->sid(), (*each)->color);
    const QList<KWTaskModel> tasks =
        context.models<KWTask>({.where = "userID = ? AND isDeleted = 0 AND isTrashed = 0 AND status = 0 AND "
                                         "kind <> ?",
                                .values = {userID, int(KWTaskKindNote)},
                                .orderBy = "startDate IS NULL, startDate, createdTime, sid"});
    const CXClock &clock = context.clock();
    const Instant tomorrow = clock.zone().startOfDay(clock.today() + std::chrono::days{1});
    QList<FocusTargetChoice> now;
    QList<FocusTargetChoice> later;
    for (const KWTaskModel &each : tasks) {
        const auto color = colors.constFind(each.projectID);
        if (color == colors.constEnd() || each.title.isEmpty()) continue;
        const bool isDue = each.startDate && *each.startDate < tomorrow;
        (isDue ? now : later).append({FocusTarget::task(each.sid), each.title, *color});
    }
    for (const KWHabit *each : KWHabit::fetchAll(userID, HabitScope::Active, context))
        now.append({FocusTarget::habit(each->sid()), (*each)->name, (*each)->color});
    return now + later;
}
