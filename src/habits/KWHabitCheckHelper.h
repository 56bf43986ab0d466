#pragma once

#include "model/store/KWHabitUtils.h"

#include <QRect>

#include <functional>

class KWHabit;
class ObjectContext;
class OrvaneKit;
struct KWHabitCheckinModel;
struct KWHabitSkipModel;

/// What every view of habits calls to change a day, see docs/habits.md. Each change of a day is one save, is
/// refused with a sentence as KWHabitUtils::changeDay() says, and can be taken back with what it answers. The
/// views learn of it from the event bus. Main thread.
class KWHabitCheckHelper {
public:
    /// The kit outlives it.
    explicit KWHabitCheckHelper(OrvaneKit &kit);

    /// Shows the pop-up of a day beside the rectangle on the screen and makes it key.
    using CheckInPopup = std::function<void(const QString &habitID, int stamp, const QRect &anchor)>;
    void setCheckInPopup(CheckInPopup popup) { m_popup = std::move(popup); }
    void openCheckInPopup(const QString &habitID, int stamp, const QRect &anchor) const;

    /// Enters the amount of a day, which then is done or not; `completion` is told whether it was stored.
    /// A skipped day is none any more. Amounts below 0, beyond `greatestAmount` and those that are no
    /// numbers are refused.
    Result<UndoToken> setValue(const QString &habitID, int stamp, double value,
                               const std::function<void(bool)> &completion = {});
    static constexpr double greatestAmount = KWHabitUtils::greatestAmount;
    static Result<void> checkedAmount(double amount);

    /// One step more or less, see KWHabitUtils::updateHabitCheckin().
    Result<UndoToken> check(const QString &habitID, int stamp, HabitCheck check);
    Result<UndoToken> markUnAchieved(const QString &habitID, int stamp);
    Result<UndoToken> skip(const QString &habitID, int stamp);
    Result<UndoToken> unskip(const QString &habitID, int stamp);
    /// The note of a day; an empty one removes it.
    Result<UndoToken> setNote(const QString &habitID, int stamp, const QString &note);

    /// The same inside a save of the caller, for days that come from elsewhere. A check-in at or above its
    /// goal is done; below it, it keeps the status it came with.
    static void createOrUpdate(ObjectContext &context, KWHabit &habit, const KWHabitCheckinModel &checkin);
    static void markUnAchieved(ObjectContext &context, KWHabit &habit, int stamp);
    static void skip(ObjectContext &context, KWHabit &habit, const KWHabitSkipModel &skip);

private:
    Result<UndoToken> changeDay(const QString &habitID, int stamp,
                                const std::function<void(KWHabit &)> &change) const;

    OrvaneKit &m_kit;
    CheckInPopup m_popup;
};
