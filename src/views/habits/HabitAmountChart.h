#pragma once

#include "habits/HabitDetailContent.h"

#include <QWidget>

/// The amounts of a month, a bar a day, with a line at the goal. Tool tips name the days.
class HabitAmountChart : public QWidget {
    Q_OBJECT

public:
    explicit HabitAmountChart(QWidget *parent = nullptr);

    void setMonth(const HabitDetailContent &content);

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    double highest() const;
    QRectF barOf(qsizetype day) const;

    KWHabitModel m_habit;
    QList<HabitDay> m_days;
};
