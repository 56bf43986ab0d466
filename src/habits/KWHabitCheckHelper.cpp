#include "habits/KWHabitCheckHelper.h"

#include "model/OrvaneKit.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitCheckin.h"
#include "model/records/KWHabitRecord.h"
#include "model/records/KWHabitSkip.h"
#include "model/settings/KWLocalizedString.h"

#include <cmath>

namespace {

void removeSkip(const KWHabit &habit, int stamp)
{
    if (KWHabitSkip *skip = habit.skipAtDateStamp(stamp)) skip->deleteForever();
}

void writeNote(KWHabit &habit, int stamp, const QString &note)
{
    KWHabitRecord *present = habit.recordAtDateStamp(stamp);
    if (note.isEmpty()) {
        if (present) present->deleteForever();
        return;
    }
    if (present) return present->set(&KWHabitRecordModel::content, note);
    KWHabitRecordModel record;
    record.userID = habit->userID;
    record.habitID = habit.sid();
    record.stamp = stamp;
    record.content = note;
    habit.context().insert<KWHabitRecord>(record);
}

} // namespace

KWHabitCheckHelper::KWHabitCheckHelper(OrvaneKit &kit) : m_kit(kit) {}

void KWHabitCheckHelper::openCheckInPopup(const QString &habitID, int stamp, const QRect &anchor) const
{
    if (m_popup) m_popup(habitID, stamp, anchor);
}

Result<void> KWHabitCheckHelper::checkedAmount(double amount)
{
    if (!std::isfinite(amount)) return Error{KWLocalizedString("An amount is a number.")};
    if (amount < 0) return Error{KWLocalizedString("An amount cannot be below 0.")};
    if (amount > greatestAmount)
        return Error{KWLocalizedString("An amount can be a thousand million at most.")};
    return {};
}

Result<UndoToken> KWHabitCheckHelper::setValue(const QString &habitID, int stamp, double value,
                                               const std::function<void(bool)> &completion)
{
    const Result<void> sound = checkedAmount(value);
    const auto done = sound ? changeDay(habitID, stamp,
                                        [=](KWHabit &habit) {
                                            removeSkip(habit, stamp);
                                            habit.makeCheckInAtDateStamp(stamp).updateValue(value);
                                        })
                            : Result<UndoToken>{sound.error()};
    if (completion) completion(bool(done));
    return done;
}

Result<UndoToken> KWHabitCheckHelper::check(const QString &habitID, int stamp, HabitCheck check)
{
    return KWHabitUtils{m_kit.manager()}.updateHabitCheckin(habitID, stamp, check, CheckedBy::Person);
}

Result<UndoToken> KWHabitCheckHelper::markUnAchieved(const QString &habitID, int stamp)
{
    return changeDay(habitID, stamp, [stamp](KWHabit &habit) {
        removeSkip(habit, stamp);
        markUnAchieved(habit.context(), habit, stamp);
    });
}

Result<UndoToken> KWHabitCheckHelper::skip(const QString &habitID, int stamp)
{
    return changeDay(habitID, stamp, [stamp](KWHabit &habit) {
        KWHabitSkipModel day;
        day.stamp = stamp;
        skip(habit.context(), habit, day);
    });
}

Result<UndoToken> KWHabitCheckHelper::unskip(const QString &habitID, int stamp)
{
    return changeDay(habitID, stamp, [stamp](KWHabit &habit) { removeSkip(habit, stamp); });
}

Result<UndoToken> KWHabitCheckHelper::setNote(const QString &habitID, int stamp, const QString &note)
{
    return changeDay(habitID, stamp, [&](KWHabit &habit) { writeNote(habit, stamp, note.trimmed()); });
}

void KWHabitCheckHelper::createOrUpdate(ObjectContext &, KWHabit &habit, const KWHabitCheckinModel &checkin)
{
    KWHabitCheckin &day = habit.makeCheckInAtDateStamp(checkin.checkinStamp);
    KWHabitCheckinModel version = checkin;
    version.habitID = habit.sid();
    version.userID = habit->userID;
    day.assign(version);
    if (version.goal <= version.value) day.updateValue(version.value);
    day.markUpdate();
    if (const auto changed = DayStamp::toDay(checkin.checkinStamp)) habit.updateStreaksAround(*changed);
}

void KWHabitCheckHelper::markUnAchieved(ObjectContext &, KWHabit &habit, int stamp)
{
    habit.makeCheckInAtDateStamp(stamp).markUnAchieved();
}

void KWHabitCheckHelper::skip(ObjectContext &context, KWHabit &habit, const KWHabitSkipModel &skip)
{
    KWHabitSkipModel version = skip;
    version.habitID = habit.sid();
    version.userID = habit->userID;
    if (KWHabitSkip *present = habit.skipAtDateStamp(skip.stamp))
        present->assign(version);
    else
        context.insert<KWHabitSkip>(version);
    habit.markUpdate();
}

Result<UndoToken> KWHabitCheckHelper::changeDay(const QString &habitID, int stamp,
                                                const std::function<void(KWHabit &)> &change) const
{
    return KWHabitUtils{m_kit.manager()}.changeDay(habitID, stamp, change);
}
