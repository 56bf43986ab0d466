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
    Strong,        ///< 12, weight 600
    Caption,       ///< 11
    CaptionStrong, ///< 11, weight 600
};

/// At the text size in force; ask again after a theme change.
const QFont &font(Role role);

/// Width of `text` when its digits all take the width of the widest digit.
int tabularWidth(const QFont &font, const QString &text);

/// Draws one line of `text` with digits of equal width, so that numbers of a column stand below each
/// other. Vertically centred; `alignment` is absolute. Text of right-to-left scripts is drawn as it is.
void drawTabular(QPainter &painter, const QRect &bounds, Qt::Alignment alignment, const QString &text);

} // namespace Fonts
