#pragma once

#include <QFont>
#include <QString>

class QPainter;
class QRect;

/// The fonts of the interface: Inter where it is installed, else the desktop's own.
namespace Fonts {

enum class Role {
    PageTitle,     ///< 20, weight 650
    DetailTitle,   ///< 17, weight 600
    Body,          ///< 13
    BodyStrong,    ///< 13, weight 600
    Secondary,     ///< 12
    Caption,       ///< 11
    CaptionStrong, ///< 11, weight 600
    Clock,         ///< 60, weight 650
    SmallClock,    ///< 30, weight 650
};

/// At the text size in force; ask again after a theme change.
const QFont &font(Role role);

enum class LineStyle { Plain, StruckOut };

/// Width of one line of `text`. Here and in drawLine() digits all take the width of the widest, so that
/// numbers of a column stand below each other; text of right-to-left scripts is left as it is.
int width(Role role, const QString &text);

/// Draws one line with the painter's pen, vertically centred, its end replaced by "…" where it is wider
/// than `bounds`. `side` is absolute. A line is shaped once and kept for the next time.
void drawLine(QPainter &painter, Role role, const QRect &bounds, Qt::Alignment side, const QString &text,
              LineStyle style = LineStyle::Plain);

} // namespace Fonts
