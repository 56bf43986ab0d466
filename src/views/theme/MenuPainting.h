#pragma once

#include <QSize>

class QPainter;
class QRect;
class QStyleOptionMenuItem;

/// How menus and the menu bar look, for the style.
namespace MenuPainting {

/// Above and below the items, and at their sides.
inline constexpr int margin = 5;

/// `contents` is the size of the words; the menu itself adds the widest of the keys.
QSize itemSize(const QStyleOptionMenuItem &item, const QSize &contents);
void drawItem(QPainter &painter, const QStyleOptionMenuItem &item);

void drawBarItem(QPainter &painter, const QStyleOptionMenuItem &item);
void drawBarBackground(QPainter &painter, const QRect &bounds);

} // namespace MenuPainting
