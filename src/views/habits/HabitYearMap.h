#pragma once

#include "habits/HabitDetailContent.h"
#include "views/habits/HabitDayPlot.h"

/// A year of a habit at a glance: a small square a day, weeks beside each other, the fuller the more of the
/// goal was reached.
class HabitYearMap : public HabitDayPlot {
    Q_OBJECT

public:
    explicit HabitYearMap(QWidget *parent = nullptr);

    void setYear(const HabitDetailContent &content, std::chrono::weekday firstWeekday);

    QSize sizeHint() const override;

protected:
    QRectF placeOf(qsizetype day) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF squareOf(qsizetype day) const;
    double pitch() const;
    static int monthsHeight() { return captionHeight() + 2; }
    QColor colorOf(const HabitDay &day) const;

    int m_before = 0; // days of the first week before the year
};
