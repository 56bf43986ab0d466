#include "model/store/HabitRows.h"

#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWUserSettings.h"

namespace {

KWTaskStatus statusOf(const KWHabitCheckin *checkin)
{
    if (!checkin) return KWTaskStatusOpen;
    if (checkin->isDone()) return KWTaskStatusCompleted;
    return checkin->isMarkUnAchieved() ? KWTaskStatusAbandoned : KWTaskStatusOpen;
}

KWTaskListItemModel rowOf(const KWHabit &habit, Day today)
{
    KWTaskListItemModel row;
    row.kind = KWTaskListItemModel::Kind::Habit;
    row.sid = habit.sid();
    row.title = habit->name;
    row.color = habit->color;
    row.sortOrder = habit->sortOrder;
    row.createdTime = habit->createdTime;
    const KWHabitCheckin *checkin = habit.checkInAtDateStamp(DayStamp::fromDay(today));
    row.status = statusOf(checkin);
    row.habit = {.isRealType = habit->isRealType,
                 .value = checkin ? (*checkin)->value : 0,
                 .goal = checkin ? (*checkin)->goal : habit->goal,
                 .unit = habit->unit,
                 .currentStreak = habit->currentStreak,
                 .countsWeeks = habit.frequency().kind == HabitFrequency::Kind::Weekly};
    return row;
}

} // namespace

QList<KWTaskListItemModel> readHabitRows(const QString &userID, ObjectContext &context)
{
    QList<KWTaskListItemModel> rows;
    const auto *settings = context.find<KWUserSettings>(userID);
    if (settings && !(*settings)->showsInToday) return rows;
    const Day today = KWUserSettings::habitDayOfUser(userID, context);
    for (const KWHabit *each : KWHabit::fetchAll(userID, HabitScope::Active, context))
        if (each->isWantedOn(today)) {
            rows.append(rowOf(*each, today));
            rows.last().rowID = rows.size();
        }
    return rows;
}
