#pragma once

#include "habits/KWHabitCheckHelper.h"
#include "habits/KWHabitViewModel.h"
#include "model/events/KWEventBus.h"
#include "views/habits/HabitCheckInPopup.h"

#include <QPointer>

#include <functional>

/// Checks days of habits in: by a key, a button, or in the pop-up of the day. Each can be taken back; what
/// cannot be done says so. Main thread.
class HabitCheckIns : public QObject {
    Q_OBJECT

public:
    /// All outlive it. The pop-up belongs to `window`.
    HabitCheckIns(OrvaneKit &kit, KWHabitCheckHelper &checks, QWidget &window);

    // Ids by value: a save may replace the rows that they stand in.
    /// A check more, or one taken back; a day that is done and has no amount is not done any more either way.
    void check(QString habitID, Day day, bool takesBack);
    void clickDay(QString habitID, Day day, const QRect &place);
    /// The pop-up of the day, also where a click only takes a mark back.
    void openDay(QString habitID, Day day, const QRect &place);
    void apply(QString habitID, Day day, const HabitDayEdit &edit);
    /// Whether it was stored.
    bool setNote(QString habitID, Day day, const QString &note);

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);

private:
    void openPopup(const QString &habitID, Day day, const QRect &anchor);
    void take(const HabitDayEdit &edit);
    /// The pop-up shows the day as it is now, or goes with its habit.
    void refreshPopup();
    Result<QList<UndoToken>> store(const QString &habitID, Day day, const HabitDayEdit &edit);
    Result<UndoToken> mark(const QString &habitID, int stamp, HabitDayEdit::Mark mark);
    /// As what the day is now.
    void report(const Result<QList<UndoToken>> &done, const QString &habitID, Day day);
    void tell(const QList<UndoToken> &done, const QString &message);
    const KWHabit *find(const QString &habitID) const;
    std::optional<HabitCheckInPopup::Content> contentOf(const QString &habitID, Day day) const;

    OrvaneKit &m_kit;
    KWHabitCheckHelper &m_checks;
    KWHabitViewModel m_days;
    QWidget &m_window;
    QPointer<HabitCheckInPopup> m_popup;
    bool m_isStoring = false;
    KWEventBus::Registration m_registration;
};
