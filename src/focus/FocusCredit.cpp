#include "focus/FocusCredit.h"

#include "focus/FocusLimits.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWTask.h"
#include "model/records/KWUserModel.h"
#include "model/records/KWUserSettings.h"

#include <algorithm>

namespace {

void creditTask(const FocusCredit &credit, const FocusCreditSource &source, std::int64_t userServerID,
                ObjectContext &context)
{
    KWTask *task = context.find<KWTask>(credit.target.entityID);
    if (!task || task->isDeleted()) return;
    if (source.status == KWPomoStatusAbandoned && !task->isCompleted()) return;
    task->addPomoCount(credit.pomos, userServerID);
    if (source.type == KWFocusTypePomo)
        task->addPomoDuration(credit.seconds, userServerID);
    else
        task->addStopwatchDuration(credit.seconds, userServerID);
}

void creditHabit(const FocusCredit &credit, const FocusCreditSource &source, const QString &userID,
                 ObjectContext &context)
{
    KWHabit *habit = context.find<KWHabit>(credit.target.entityID);
    if (!habit || habit->isDeleted()) return;
    const Day day = KWUserSettings::habitDayOfUser(userID, source.startDate, context);
    habit->appendTimeInerval(credit.seconds, DayStamp::fromDay(day));
}

} // namespace

std::chrono::milliseconds pauseOf(const QList<FocusStretch> &stretches)
{
    std::chrono::milliseconds pause{0};
    for (const FocusStretch &each : stretches)
        if (each.isPause) pause += each.length();
    return pause;
}

std::int64_t pauseSecondsOf(const QList<FocusStretch> &stretches)
{
    return std::chrono::round<std::chrono::seconds>(pauseOf(stretches)).count();
}

QList<FocusCredit> creditsOf(const QList<FocusStretch> &stretches, KWFocusType type, KWPomoStatus status)
{
    struct Sum {
        FocusTarget target;
        std::chrono::milliseconds length{0};
    };
    QList<Sum> sums;
    for (const FocusStretch &each : stretches) {
        if (each.isPause || each.target.isNone()) continue;
        auto sum = std::ranges::find(sums, each.target, &Sum::target);
        if (sum == sums.end()) sum = sums.insert(sums.end(), {.target = each.target});
        sum->length += each.length();
    }

    QList<FocusCredit> credits;
    for (const Sum &each : sums) {
        const std::chrono::seconds seconds = std::chrono::round<std::chrono::seconds>(each.length);
        if (seconds.count() <= 0) continue;
        const bool isPomo = type == KWFocusTypePomo && status == KWPomoStatusCompleted &&
                            each.target.kind == FocusTarget::Kind::Task &&
                            seconds >= FocusLimits::minimumFocus;
        credits.append({.target = each.target, .seconds = seconds.count(), .pomos = isPomo ? 1 : 0});
    }
    return credits;
}

void applyCredits(const QList<FocusCredit> &credits, const FocusCreditSource &source, const KWUserModel &user,
                  ObjectContext &context)
{
    for (const FocusCredit &each : credits) {
        if (each.target.kind == FocusTarget::Kind::Task)
            creditTask(each, source, user.userServerID, context);
        else
            creditHabit(each, source, user.sid, context);
    }
}
