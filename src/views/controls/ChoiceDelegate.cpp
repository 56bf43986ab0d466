#include "views/controls/ChoiceDelegate.h"

#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

void ChoiceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    if (option.state & QStyle::State_Selected)
        Painting::roundedBox(*painter, option.rect, Metrics::rowRadius, theme.selection);
    const int icon = Metrics::scaled(Metrics::icon);
    const auto visual = [&option](const QRect &bounds) {
        return QStyle::visualRect(option.direction, option.rect, bounds);
    };
    QRect row = option.rect.adjusted(Metrics::gap, 0, -Metrics::gap, 0);
    if (index.data(CheckedRole).toBool())
        Icons::paint(*painter, visual({row.right() - icon, row.top(), icon, row.height()}), Icon::Check, icon,
                     theme.accentText);
    row.adjust(0, 0, -icon - Metrics::grid, 0);
    if (const QVariant color = index.data(ColorRole); color.isValid()) {
        Painting::dot(*painter, visual({row.left(), row.top(), icon, row.height()}).center(),
                      color.toString());
        row.adjust(icon + Metrics::grid, 0, 0, 0);
    }
    painter->setPen(theme.text);
    Fonts::drawLine(*painter, Fonts::Role::Body, visual(row),
                    QStyle::visualAlignment(option.direction, Qt::AlignLeft), index.data().toString());
}

QSize ChoiceDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow)};
}
