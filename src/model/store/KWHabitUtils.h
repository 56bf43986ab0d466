#pragma once

#include "model/store/UndoToken.h"

#include <functional>

class KWHabit;

enum class HabitCheck { Add, TakeBack };

/// Who says that a habit was done.
enum class CheckedBy {
    Person,
    Program, ///< because of something else that the person did
};

/// What is done to the days of habits, each in one save. What is answered takes it back. Main thread.
class KWHabitUtils {
public:
    explicit KWHabitUtils(KWCoreDataManager &manager) : m_manager(manager) {}

    /// One check of the habit on that day, or one taken back, with its streaks. A check makes a day done,
    /// or adds the habit's step to the amount; taken back, the day is not done, or the amount is less by the
    /// step, never below 0. The first check of a day keeps the habit's goal of now.
    ///
    /// A person's check takes it back that the day was skipped or not achieved; the program leaves such a
    /// day alone. Nothing happens to an archived habit, to a day without a check to take back, and to one
    /// that is done and has no amount. What changeDay() refuses fails with its sentence.
    Result<UndoToken> updateHabitCheckin(const QString &habitID, int stamp, HabitCheck check, CheckedBy by);

    /// The day reaches its goal, whatever was entered before.
    Result<UndoToken> finishDay(const QString &habitID, int stamp);

    /// Does `change` to the habit on that day and updates its streaks. Nothing happens to an archived habit.
    /// A habit that is gone, a stamp that is no day (see DayStamp.h) and a day after today fail with a
    /// sentence.
    ///
    /// The event bus tells the habit as updated, whether its streaks changed or not.
    /// The id is taken by value: a save may replace the row that it stands in.
    Result<UndoToken> changeDay(QString habitID, int stamp, const std::function<void(KWHabit &)> &change);

    static constexpr double greatestAmount = 1e9;
    /// An amount to the millionth, for ten tenths are one.
    static double withoutRoundingErrors(double amount);

private:
    KWCoreDataManager &m_manager;
};
