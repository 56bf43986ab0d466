#pragma once

#include "focus/FocusStatistics.h"

#include <QWidget>

class FocusDaysChart;
class FocusShareList;
class IconButton;
class QLabel;
class SegmentedControl;

/// The focus of a day, week or month: in all, by day, by list and by tag.
class FocusStatisticsView : public QWidget {
    Q_OBJECT

public:
    explicit FocusStatisticsView(QWidget *parent = nullptr);

    void setStatistics(const FocusStatistics &statistics, Day today);

Q_SIGNALS:
    void periodRequested(const FocusPeriod &period);

private:
    QLayout *makeHead();
    void turn(int periods);
    QString nameOfRange() const;
    void nameSteps();

    FocusStatistics m_statistics;
    SegmentedControl *m_kinds;
    QLabel *m_range;
    IconButton *m_before;
    IconButton *m_after;
    QLabel *m_total;
    FocusDaysChart *m_days;
    QLabel *m_listsName;
    FocusShareList *m_lists;
    QLabel *m_tagsName;
    FocusShareList *m_tags;
};
