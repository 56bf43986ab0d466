#include "views/tasklist/DropMark.h"

#include "views/tasklist/TaskRowLayout.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

void DropMark::paint(QPainter &painter, const DropTarget &target, Answer answer, const QRect &row,
                     Qt::LayoutDirection direction)
{
    const Theme &theme = Theme::current();
    const QColor color = answer == Answer::Taken ? theme.accent : theme.faintText;
    if (target.mark == DropTarget::Mark::Onto)
        return Painting::roundedBox(painter, row, Metrics::rowRadius, Qt::transparent, color);

    const int left = taskRowCheckbox(row, Qt::LeftToRight, target.depth).left();
    const int y = target.mark == DropTarget::Mark::Above ? row.top() : row.bottom();
    const QRect line{left, y, row.right() + 1 - Metrics::rowOutset - left, 2};
    painter.fillRect(QStyle::visualRect(direction, row, line), color);
}
