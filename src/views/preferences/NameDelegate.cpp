#include "views/preferences/NameDelegate.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

void NameDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    const Theme &theme = Theme::current();
    const QRect box = option.rect.adjusted(Metrics::rowOutset, 1, -Metrics::rowOutset, -1);
    if (option.state & QStyle::State_Selected)
        Painting::roundedBox(*painter, box, Metrics::rowRadius, theme.selection);
    else if (option.state & QStyle::State_MouseOver)
        Painting::roundedBox(*painter, box, Metrics::rowRadius, theme.hover);
    const bool isFocused = (option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_Active);
    if (isFocused) Painting::focusRing(*painter, box, Metrics::rowRadius);
    painter->setPen(theme.text);
    const Qt::Alignment side = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    Fonts::drawLine(*painter, Fonts::Role::Body, box.adjusted(Metrics::gap, 0, -Metrics::gap, 0), side,
                    index.data().toString());
}

QSize NameDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow) + 1};
}
