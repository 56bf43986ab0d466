#include "views/theme/MenuPainting.h"

#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

constexpr int itemHeight = 28;
constexpr int separatorHeight = 9;
constexpr int itemPadding = 10; // within the box of the selected item
constexpr int beforeKeys = 28;
constexpr int itemMark = 14; // a tick, an arrow

bool hasMarks(const QStyleOptionMenuItem &item)
{
    return item.menuHasCheckableItems || item.maxIconWidth > 0;
}

int marksWidth(const QStyleOptionMenuItem &item)
{
    return hasMarks(item) ? Metrics::scaled(itemMark) + Metrics::grid * 2 : 0;
}

void drawItemMark(QPainter &painter, const QStyleOptionMenuItem &item, const QRect &bounds)
{
    if (item.checked)
        Icons::paint(painter, bounds, Icon::Check, Metrics::scaled(itemMark), Theme::current().accentText);
    else if (!item.icon.isNull())
        item.icon.paint(&painter, bounds);
}

void drawSubmenuArrow(QPainter &painter, const QRect &bounds, const QColor &color,
                      Qt::LayoutDirection direction)
{
    painter.save();
    if (direction == Qt::RightToLeft) {
        painter.translate(bounds.left() + bounds.right() + 1, 0);
        painter.scale(-1, 1);
    }
    Icons::paint(painter, bounds, Icon::ChevronRight, Metrics::scaled(itemMark), color);
    painter.restore();
}

} // namespace

QSize MenuPainting::itemSize(const QStyleOptionMenuItem &item, const QSize &contents)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) return {contents.width(), separatorHeight};
    // A box of choices gives its whole list for the contents.
    return {contents.width() + 2 * itemPadding + beforeKeys + marksWidth(item),
            std::max(Metrics::scaled(itemHeight), item.fontMetrics.height() + Metrics::grid)};
}

void MenuPainting::drawItem(QPainter &painter, const QStyleOptionMenuItem &item)
{
    const Theme &theme = Theme::current();
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        const QRect line{item.rect.left() + itemPadding, item.rect.center().y(),
                         item.rect.width() - 2 * itemPadding, 1};
        painter.fillRect(line, theme.hairline);
        return;
    }
    const bool isEnabled = item.state & QStyle::State_Enabled;
    if (isEnabled && item.state & QStyle::State_Selected)
        Painting::roundedBox(painter, item.rect, Metrics::pillRadius, theme.selection);

    const auto visual = [&item](const QRect &bounds) {
        return QStyle::visualRect(item.direction, item.rect, bounds);
    };
    const QRect inner = item.rect.adjusted(itemPadding, 0, -itemPadding, 0);
    const int markSide = Metrics::scaled(itemMark);
    if (hasMarks(item))
        drawItemMark(painter, item, visual({inner.left(), inner.top(), markSide, inner.height()}));
    const QRect words = visual(inner.adjusted(marksWidth(item), 0, 0, 0));
    const qsizetype tab = item.text.indexOf(u'\t');
    painter.setFont(item.font);
    painter.setPen(isEnabled ? theme.text : theme.faintText);
    painter.drawText(words,
                     int(QStyle::visualAlignment(item.direction, Qt::AlignLeft)) | Qt::AlignVCenter |
                         Qt::TextHideMnemonic | Qt::TextSingleLine,
                     item.text.left(tab));
    painter.setPen(isEnabled ? theme.secondaryText : theme.faintText);
    if (tab >= 0)
        painter.drawText(words,
                         int(QStyle::visualAlignment(item.direction, Qt::AlignRight)) | Qt::AlignVCenter |
                             Qt::TextSingleLine,
                         item.text.mid(tab + 1));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        drawSubmenuArrow(painter,
                         visual({inner.right() + 1 - markSide, inner.top(), markSide, inner.height()}),
                         painter.pen().color(), item.direction);
}

void MenuPainting::drawBarItem(QPainter &painter, const QStyleOptionMenuItem &item)
{
    const Theme &theme = Theme::current();
    drawBarBackground(painter, item.rect);
    const bool isChosen = item.state & (QStyle::State_Selected | QStyle::State_Sunken);
    if (isChosen)
        Painting::roundedBox(painter, item.rect.adjusted(1, 2, -1, -3), Metrics::pillRadius, theme.selection);
    painter.setPen(theme.text);
    // The bar came by Alt: its letters are what is wanted next.
    painter.drawText(item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item.text);
}

void MenuPainting::drawBarBackground(QPainter &painter, const QRect &bounds)
{
    painter.fillRect(bounds, Theme::current().sidebar);
    painter.fillRect(bounds.left(), bounds.bottom(), bounds.width(), 1, Theme::current().hairline);
}
