#include "model/store/KWHabitUtils.h"

#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitSkip.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

#include <algorithm>
#include <cmath>

namespace {

double amountAfter(HabitCheck check, const KWHabit &habit, const KWHabitCheckin &checkin)
{
    if (!habit->isRealType) return check == HabitCheck::Add ? checkin->goal : 0;
    const double step = check == HabitCheck::Add ? habit->step : -habit->step;
    return std::clamp(KWHabitUtils::withoutRoundingErrors(checkin->value + step), 0.0,
                      KWHabitUtils::greatestAmount);
}

bool canBeChecked(HabitCheck check, CheckedBy by, const KWHabit &habit, const KWHabitCheckin *checkin,
                  const KWHabitSkip *skip)
{
    const bool isRuledOut = skip || (checkin && checkin->isMarkUnAchieved());
    if (isRuledOut && by == CheckedBy::Program) return false;
    if (check == HabitCheck::TakeBack) return checkin;
    return habit->isRealType || skip || !checkin || !checkin->isDone();
}

void checkDay(KWHabit &habit, int stamp, HabitCheck check, CheckedBy by)
{
    KWHabitSkip *skip = habit.skipAtDateStamp(stamp);
    if (!canBeChecked(check, by, habit, habit.checkInAtDateStamp(stamp), skip)) return;
    KWHabitCheckin &checkin = habit.makeCheckInAtDateStamp(stamp);
    checkin.updateValue(amountAfter(check, habit, checkin));
    if (skip && check == HabitCheck::Add) skip->deleteForever();
}

} // namespace

double KWHabitUtils::withoutRoundingErrors(double amount)
{
    constexpr double places = 1e6;
    return std::abs(amount) < 1e9 ? std::round(amount * places) / places : amount;
}

Result<UndoToken> KWHabitUtils::updateHabitCheckin(const QString &habitID, int stamp, HabitCheck check,
                                                   CheckedBy by)
{
    return changeDay(habitID, stamp, [=](KWHabit &habit) { checkDay(habit, stamp, check, by); });
}

Result<UndoToken> KWHabitUtils::finishDay(const QString &habitID, int stamp)
{
    return changeDay(habitID, stamp, [stamp](KWHabit &habit) {
        KWHabitCheckin &checkin = habit.makeCheckInAtDateStamp(stamp);
        if (!checkin.isDone()) checkin.updateValue(std::max(checkin->value, checkin->goal));
        if (KWHabitSkip *skip = habit.skipAtDateStamp(stamp)) skip->deleteForever();
    });
}

Result<UndoToken> KWHabitUtils::changeDay(QString habitID, int stamp,
                                          const std::function<void(KWHabit &)> &change)
{
    UndoToken token;
    bool isUntold = false;
    const auto update = [&](ObjectContext &context) -> Result<void> {
        KWHabit *habit = context.find<KWHabit>(habitID);
        if (!habit || habit->isDeleted()) return Error{storeText("There is no such habit any more.")};
        if ((*habit)->isArchived) return {};
        const std::optional<Day> day = DayStamp::toDay(stamp);
        if (!day) return Error{storeText("%1 is no day.").arg(stamp)};
        if (*day > habit->today()) return Error{storeText("This day is still to come.")};
        change(*habit);
        if (!context.hasChanges()) return {};
        habit->updateStreaksAround(*day);
        token = UndoToken::of(context);
        isUntold = context.changed<KWHabit>().isEmpty();
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(update);
    if (!saved) return saved.error();
    if (isUntold) eb_postHabitUpdated(m_manager.bus(), habitID);
    return token;
}
