#pragma once

#include "corvexkit/Result.h"
#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"
#include "views/controls/PopupFrame.h"
#include "views/habits/HabitDayEdit.h"

class HabitNoteEdit;
class QLabel;
class QLineEdit;
class QPushButton;

/// A small frame beside a day of a habit, in which the day is checked in: done, an amount, not achieved or
/// skipped, with a note. Enter takes what is typed, and so does a click beside it; Escape leaves the day as
/// it was. It goes on meaning its day when midnight or a journey comes.
class HabitCheckInPopup : public PopupFrame {
    Q_OBJECT

public:
    struct Content {
        KWHabitModel habit;
        HabitDay day;
        QString note;
    };
    HabitCheckInPopup(const Content &content, QWidget *parent);

    /// As it is now; what is typed stays.
    void setContent(const Content &content);
    const Content &content() const { return m_content; }
    const QString &habitID() const { return m_content.habit.sid; }
    Day day() const { return m_content.day.day; }
    /// Below the rectangle on the screen, or above where the screen ends.
    void popUp(const QRect &anchor);
    /// Why it could not be taken; it stays open.
    void showProblem(const QString &sentence);
    /// Closes without taking anything.
    void discard();

Q_SIGNALS:
    /// Close it when it is stored.
    void edited(const HabitDayEdit &edit);
    /// It went with an amount that cannot be taken; what else was typed is.
    void refused(const QString &sentence);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void keepWithoutAmount();
    QLayout *makeAmountRow();
    QLayout *makeMarks();
    void showDay();
    void step(double steps);
    void take(HabitDayEdit::Mark mark);
    std::optional<QString> typedNote() const;
    /// None when it is as it was.
    Result<std::optional<double>> typedAmount() const;

    Content m_content;
    bool m_isDiscarded = false;
    QLineEdit *m_amount;
    QLabel *m_unit;
    QLabel *m_state;
    QLabel *m_problem;
    QPushButton *m_done;
    QPushButton *m_unAchieved;
    QPushButton *m_skip;
    QPushButton *m_save;
    HabitNoteEdit *m_note;
};
