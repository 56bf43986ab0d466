#pragma once

#include "habits/HabitDetailContent.h"

#include <QWidget>

/// A year of a habit at a glance: a small square a day, weeks beside each other, the fuller the more of the
/// goal was reached. Tool tips name the days.
class HabitYearMap : public QWidget {
    Q_OBJECT

public:
    explicit HabitYearMap(QWidget *parent = nullptr);

    void setYear(const HabitDetailContent &content, std::chrono::weekday firstWeekday);

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF boundsOf(qsizetype day) const;
    double pitch() const;
    int monthsHeight() const;
    QColor colorOf(const HabitDay &day) const;

    HabitDetailContent m_content;
    int m_before = 0; // days of the first week before the year
};
