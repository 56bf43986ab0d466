#include "views/calendar/DayItemDelegate.h"

#include "views/calendar/ItemPainter.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"

#include <QPainter>

namespace {

constexpr int dayRowHeight = 28;
constexpr int dayRowGap = 2;

int boxWidth() { return Metrics::scaled(Metrics::checkbox) + 2 * Metrics::grid; }

} // namespace

DayItemDelegate::DayItemDelegate(const std::vector<CalendarItem> &items, KWCalendarColorBy colorBy,
                                 QObject *parent)
    : QStyledItemDelegate(parent), m_items(items), m_colorBy(colorBy)
{
}

QRect DayItemDelegate::boxOf(const CalendarItem &item, const QRect &row, Qt::LayoutDirection direction)
{
    if (item.isReadOnly) return {};
    return QStyle::visualRect(direction, row, {row.left(), row.top(), boxWidth(), row.height()});
}

void DayItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const CalendarItem &item = m_items[std::size_t(index.row())];
    if (const QRect box = boxOf(item, option.rect, option.direction); !box.isEmpty()) {
        const int side = Metrics::scaled(Metrics::checkbox);
        QRect square{0, 0, side, side};
        square.moveCenter(box.center());
        Painting::checkbox(*painter, square,
                           {.checked = item.isClosed ? 1.0 : 0.0, .priority = item.priority});
    }
    const QRect bar = option.rect.adjusted(boxWidth(), 0, 0, -dayRowGap);
    const bool isCurrent = option.state & QStyle::State_Selected;
    ItemPainter::paint(
        *painter,
        {.item = std::size_t(index.row()), .bounds = QStyle::visualRect(option.direction, option.rect, bar)},
        item, {.isSelected = isCurrent, .colorBy = m_colorBy}, option.direction);
}

QSize DayItemDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Metrics::scaled(120), Metrics::scaled(dayRowHeight)};
}
