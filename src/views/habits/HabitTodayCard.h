#pragma once

#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"

#include <QFrame>

class PillButton;
class QLabel;

/// What was done of the habit today, with buttons for one step more or less, or for done.
class HabitTodayCard : public QFrame {
    Q_OBJECT

public:
    explicit HabitTodayCard(QWidget *parent = nullptr);

    void setDay(const KWHabitModel &habit, const HabitDay &day);

Q_SIGNALS:
    /// Of the day it shows.
    void checkRequested(Day day, bool takesBack);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showAmount(const KWHabitModel &habit, const HabitDay &day);
    void showDone(const HabitDay &day);

    Day m_day{};
    bool m_takesBack = false; // what the larger button does
    QLabel *m_value;
    QLabel *m_words;
    PillButton *m_less;
    PillButton *m_more;
};
