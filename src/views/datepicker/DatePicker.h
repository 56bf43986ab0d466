#pragma once

#include "corvexkit/time/Instant.h"

#include <QFrame>

#include <optional>

class MonthView;
class QBoxLayout;
class QLayout;

/// A small frame over the window that asks for a day: a month, and above it the days that are asked for
/// most. Arrows move, Enter takes, Escape goes back. It is gone when it has answered.
class DatePicker : public QFrame {
    Q_OBJECT

public:
    struct Days {
        Day today;
        std::optional<Day> selected; ///< today without one
        int firstWeekday = 1;        ///< 1 Sunday … 7 Saturday
    };
    DatePicker(const Days &days, QWidget *parent);

    /// Shows it with its corner at `position`, or as near as the screen allows.
    void popUp(const QPoint &position);

Q_SIGNALS:
    /// No day: the date is to go.
    void picked(std::optional<Day> day);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addChoice(QBoxLayout &row, const char *name, const QString &text, std::optional<Day> day);
    void pick(std::optional<Day> day);
    QLayout *makeHead();

    MonthView *m_month;
};
