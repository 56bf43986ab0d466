#pragma once

#include "corvexkit/time/Instant.h"

#include <QCalendarWidget>

/// The days of a month, painted after the theme: today in the accent colour with a dot, the selected day
/// filled, in the accent colour while it has the keyboard, days of other months faint.
class MonthView : public QCalendarWidget {
    Q_OBJECT

public:
    /// `firstWeekday`: 1 Sunday … 7 Saturday.
    MonthView(Day today, int firstWeekday, QWidget *parent = nullptr);

    /// "November 2026", of the month on show.
    QString title() const;

    QSize sizeHint() const override;

protected:
    void paintCell(QPainter *painter, const QRect &cell, QDate date) const override;

private:
    bool hasKeyboard() const;

    const QDate m_today;
};
