#pragma once

#include "views/controls/PopupFrame.h"
#include "views/datepicker/DayChooser.h"

/// A small frame over the window that asks for a day: a month, and above it the days that are asked for
/// most. Arrows move, Enter takes, Escape goes back. It is gone when it has answered.
class DatePicker : public PopupFrame {
    Q_OBJECT

public:
    using Days = DayChooser::Days;
    DatePicker(const Days &days, QWidget *parent);

    /// Shows it with its corner at `position`, or as near as the screen allows.
    void popUp(const QPoint &position);

Q_SIGNALS:
    /// No day: the date is to go.
    void picked(std::optional<Day> day);

private:
    void pick(std::optional<Day> day);

    DayChooser *m_days;
};
