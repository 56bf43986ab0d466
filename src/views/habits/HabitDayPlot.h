#pragma once

#include "model/records/HabitDay.h"
#include "model/records/KWHabitModel.h"

#include <QWidget>

/// What pictures of many days of a habit have in common: each day has its place, and tool tips name the days.
class HabitDayPlot : public QWidget {
    Q_OBJECT

protected:
    explicit HabitDayPlot(QWidget *parent);

    void setDays(const KWHabitModel &habit, const QList<HabitDay> &days);
    const KWHabitModel &habit() const { return m_habit; }
    const QList<HabitDay> &days() const { return m_days; }

    /// Where the pointer is on the day of that index.
    virtual QRectF placeOf(qsizetype day) const = 0;
    static int captionHeight();
    static void paintCaption(QPainter &painter, const QRect &bounds, Qt::Alignment alignment,
                             const QString &text);

    bool event(QEvent *event) override;

private:
    KWHabitModel m_habit;
    QList<HabitDay> m_days;
};
