#pragma once

#include "habits/HabitDetailContent.h"
#include "views/habits/HabitDayPlot.h"

/// The amounts of a month, a bar a day, with a line at the goal.
class HabitAmountChart : public HabitDayPlot {
    Q_OBJECT

public:
    explicit HabitAmountChart(QWidget *parent = nullptr);

    void setMonth(const HabitDetailContent &content);

    QSize sizeHint() const override;

protected:
    /// As wide and high as the whole column of the day.
    QRectF placeOf(qsizetype day) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    double highest() const;
};
