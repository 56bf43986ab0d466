#pragma once

#include "corvexkit/time/Instant.h"

#include <QWidget>

#include <optional>

class MonthView;
class QBoxLayout;

/// A month to choose a day from, and above it the days that are asked for most.
class DayChooser : public QWidget {
    Q_OBJECT

public:
    struct Days {
        Day today;
        std::optional<Day> selected; ///< today without one
        int firstWeekday = 1;        ///< 1 Sunday … 7 Saturday
        bool offersNone = true;      ///< that there is to be no day
    };
    explicit DayChooser(const Days &days, QWidget *parent = nullptr);

    Day selectedDay() const;
    void select(Day day);
    /// The keyboard goes into the month.
    void focusMonth();

Q_SIGNALS:
    /// One of the days that are asked for most; no day: there is to be none.
    void choiceMade(std::optional<Day> day);
    /// Another day of the month, by keys or the mouse.
    void daySelected(Day day);
    void dayClicked(Day day);
    /// Enter on a day, or a double click.
    void dayActivated(Day day);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addChoice(QBoxLayout &row, const char *name, const QString &text, std::optional<Day> day);
    QLayout *makeHead();

    MonthView *m_month;
};
