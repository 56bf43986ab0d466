#pragma once

#include "focus/FocusStatistics.h"

#include <QWidget>

/// The focus of some days, a bar a day, today's in the accent. Tool tips tell of each day, and screen readers
/// of all.
class FocusDaysChart : public QWidget {
    Q_OBJECT

public:
    FocusDaysChart(const char *name, const QString &what, QWidget *parent = nullptr);

    void setDays(const QList<FocusDay> &days, Day today);

    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QRectF columnOf(qsizetype day) const;
    QString nameOf(qsizetype day) const;
    QString spoken(const FocusDay &day) const;

    QString m_what;
    QList<FocusDay> m_days;
    Day m_today{};
};
