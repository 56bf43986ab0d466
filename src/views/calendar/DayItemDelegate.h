#pragma once

#include "calendar/CalendarItem.h"

#include <QStyledItemDelegate>

#include <vector>

/// Paints the items of one day in rows, each as a bar of the calendar behind the box that completes it.
class DayItemDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The items, one for each row, outlive it.
    DayItemDelegate(const std::vector<CalendarItem> &items, KWCalendarColorBy colorBy, QObject *parent);

    /// The box in a row; empty for what cannot be completed.
    static QRect boxOf(const CalendarItem &item, const QRect &row, Qt::LayoutDirection direction);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const std::vector<CalendarItem> &m_items;
    const KWCalendarColorBy m_colorBy;
};
