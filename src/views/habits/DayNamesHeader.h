#pragma once

#include <QHeaderView>

/// Names of days above their columns, in quiet small type; today's in the accent. They are only read.
class DayNamesHeader : public QHeaderView {
    Q_OBJECT

public:
    /// `todayRole` of the model's header data tells whether a column is today's.
    DayNamesHeader(int todayRole, int lines, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void paintSection(QPainter *painter, const QRect &bounds, int section) const override;

private:
    const int m_todayRole;
    const int m_lines;
};
