#pragma once

#include "model/records/HabitFrequency.h"

#include <QWidget>

#include <array>

class Stepper;
class PillButton;
class QAbstractButton;
class QLabel;
class QStackedWidget;
class SegmentedControl;

/// On which days a habit is due: on weekdays that are picked, on a number of days a week, or every so many
/// days.
class HabitFrequencyPage : public QWidget {
    Q_OBJECT

public:
    static constexpr int greatestInterval = 30;

    /// Opens on the kind that the rule is.
    HabitFrequencyPage(const QString &repeatRule, std::chrono::weekday firstWeekday,
                       QWidget *parent = nullptr);

    /// The rule as it was as long as nothing was touched: it may say more than can be chosen here.
    QString repeatRule() const;

Q_SIGNALS:
    void changed();

private:
    QWidget *makeDaily();
    QWidget *makeWeekly();
    QWidget *makeRepeat();
    HabitFrequency frequency() const;
    void touch();
    void showWords();

    const QString m_rule;
    const std::chrono::weekday m_firstWeekday;
    bool m_isTouched = false;
    SegmentedControl *m_kind;
    QStackedWidget *m_pages;
    std::array<QAbstractButton *, 7> m_weekdays{}; // Sunday first
    Stepper *m_times;
    QLabel *m_timesWords;
    Stepper *m_interval;
    QLabel *m_dailyWords;
};
