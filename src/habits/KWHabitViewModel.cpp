#include "habits/KWHabitViewModel.h"

#include "habits/KWHabitCheckHelper.h"
#include "model/OrvaneKit.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/settings/KWLocalizedString.h"

#include <cmath>

namespace {

// With a step of 2 an amount habit is marked and unmarked as one without an amount.
constexpr double stepWithoutAmount = 2;

bool isAmountKept(const KWHabit &habit) { return habit->isRealType && habit->step != stepWithoutAmount; }

} // namespace

KWHabitViewModel::KWHabitViewModel(OrvaneKit &kit, KWHabitCheckHelper &checks) : m_kit(kit), m_checks(checks)
{
}

Result<UndoToken> KWHabitViewModel::clickDay(const QString &habitID, int stamp, const QRect &anchor)
{
    const KWHabit *habit = m_kit.context().find<KWHabit>(habitID);
    const bool isKept = habit && !habit->isDeleted() && !(*habit)->isArchived;
    // Of a day that was skipped as well, the mark is not seen.
    const bool isSkipped = isKept && habit->skipAtDateStamp(stamp);
    const KWHabitCheckin *checkin = isKept && !isSkipped ? habit->checkInAtDateStamp(stamp) : nullptr;
    if (checkin && checkin->isMarkUnAchieved()) return undoUnAchieved(habitID, stamp);
    return openDay(habitID, stamp, anchor);
}

Result<UndoToken> KWHabitViewModel::openDay(const QString &habitID, int stamp, const QRect &anchor)
{
    const KWHabit *habit = m_kit.context().find<KWHabit>(habitID);
    if (!habit || habit->isDeleted() || (*habit)->isArchived) return UndoToken{};
    const std::optional<Day> day = DayStamp::toDay(stamp);
    if (day && *day > habit->today()) return Error{KWLocalizedString("This day is still to come.")};
    m_checks.openCheckInPopup(habitID, stamp, anchor);
    return UndoToken{};
}

Result<UndoToken> KWHabitViewModel::undoUnAchieved(const QString &habitID, int stamp)
{
    return KWHabitUtils{m_kit.manager()}.changeDay(habitID, stamp, [stamp](KWHabit &habit) {
        KWHabitCheckin *checkin = habit.checkInAtDateStamp(stamp);
        if (!checkin || !checkin->isMarkUnAchieved()) return;
        const double amount = isAmountKept(habit) ? (*checkin)->value : 0;
        if (amount > 0)
            checkin->updateValue(amount);
        else
            checkin->deleteForever();
    });
}
