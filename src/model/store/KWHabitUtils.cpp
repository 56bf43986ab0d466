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

// Ten tenths are one.
double withoutRoundingErrors(double amount)
{
    constexpr double places = 1e6;
    return std::abs(amount) < 1e9 ? std::round(amount * places) / places : amount;
}

double amountAfter(HabitCheck check, const KWHabit &habit, const KWHabitCheckin &checkin)
{
    if (!habit->isRealType) return check == HabitCheck::Add ? checkin->goal : 0;
    const double step = check == HabitCheck::Add ? habit->step : -habit->step;
    return std::max(0.0, withoutRoundingErrors(checkin->value + step));
}

KWHabitSkip *skipAtDateStamp(int stamp, const KWHabit &habit)
{
    for (KWHabitSkip *each : habit.skips())
        if ((*each)->stamp == stamp) return each;
    return nullptr;
}

bool canBeChecked(HabitCheck check, CheckedBy by, const KWHabit &habit, const KWHabitCheckin *checkin,
                  const KWHabitSkip *skip)
{
    const bool isRuledOut = skip || (checkin && checkin->isMarkUnAchieved());
    if (isRuledOut && by == CheckedBy::Program) return false;
    if (check == HabitCheck::TakeBack) return checkin;
    return habit->isRealType || skip || !checkin || !checkin->isDone();
}

// Whether there was anything to change.
bool changeDay(KWHabit &habit, int stamp, HabitCheck check, CheckedBy by)
{
    KWHabitSkip *skip = skipAtDateStamp(stamp, habit);
    if (!canBeChecked(check, by, habit, habit.checkInAtDateStamp(stamp), skip)) return false;
    KWHabitCheckin &checkin = habit.makeCheckInAtDateStamp(stamp);
    checkin.updateValue(amountAfter(check, habit, checkin));
    if (skip && check == HabitCheck::Add) skip->deleteForever();
    habit.updateStreaks();
    return true;
}

} // namespace

Result<void> KWHabitUtils::updateHabitCheckin(const QString &habitID, int stamp, HabitCheck check,
                                              CheckedBy by)
{
    bool isUntold = false;
    const auto update = [&](ObjectContext &context) -> Result<void> {
        KWHabit *habit = context.find<KWHabit>(habitID);
        if (!habit || habit->isDeleted()) return Error{storeText("There is no such habit any more.")};
        if ((*habit)->isArchived) return {};
        const std::optional<Day> day = DayStamp::toDay(stamp);
        if (!day) return Error{storeText("%1 is no day.").arg(stamp)};
        if (*day > context.clock().today()) return Error{storeText("This day is still to come.")};
        const bool isChanged = changeDay(*habit, stamp, check, by);
        isUntold = isChanged && context.changed<KWHabit>().isEmpty();
        return {};
    };
    const Result<void> saved = KWCoreDataService{m_manager}.sync_save(update);
    if (saved && isUntold) eb_postHabitUpdated(m_manager.bus(), habitID);
    return saved;
}
