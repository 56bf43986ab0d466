#pragma once

#include "views/habits/HabitMonthModel.h"

#include <QTableView>

/// A month of a habit: done days filled, ring for today and for part of a goal, missed days in the colour of
/// what is overdue, days to come quiet. Arrows move among the days, Page Up and Page Down turn the month,
/// Enter, Space and a click choose a day.
class HabitMonthGrid : public QTableView {
    Q_OBJECT

public:
    explicit HabitMonthGrid(QWidget *parent = nullptr);

    void setMonth(const HabitDetailContent &content, std::chrono::weekday firstWeekday);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {narrowest(), sizeHint().height()}; }

Q_SIGNALS:
    /// `place` is its circle on the screen.
    void dayChosen(Day day, const QRect &place);
    void monthsTurned(int months);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    static int narrowest();
    void choose(const QModelIndex &index);
    void layOut();

    HabitMonthModel m_model;
};
