#pragma once

#include "model/store/UndoToken.h"

#include <QRect>

class KWHabitCheckHelper;
class OrvaneKit;

/// What a click on a day of a habit does. Main thread.
class KWHabitViewModel {
public:
    /// Both outlive it.
    KWHabitViewModel(OrvaneKit &kit, KWHabitCheckHelper &checks);

    /// Nothing for a habit that is gone or archived. A day said not to be achieved loses that mark, see
    /// undoUnAchieved(); for any other the pop-up opens beside `anchor`. A day to come fails with a sentence.
    Result<UndoToken> clickDay(const QString &habitID, int stamp, const QRect &anchor);

    /// The same with the pop-up for any day.
    Result<UndoToken> openDay(const QString &habitID, int stamp, const QRect &anchor);

    /// Takes back that the day was not achieved. It is without a check-in again when no amount was entered,
    /// and always where there is nothing but done or not; else the amount decides between done and not.
    Result<UndoToken> undoUnAchieved(const QString &habitID, int stamp);

private:
    OrvaneKit &m_kit;
    KWHabitCheckHelper &m_checks;
};
