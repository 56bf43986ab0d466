#include "views/controls/AddButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>

AddButton::AddButton(const QString &text, QWidget *parent) : PaintedButton(parent)
{
    setText(text);
    setAccessibleName(text);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize AddButton::sizeHint() const { return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow)}; }

void AddButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    const QColor color = underMouse() ? theme.secondaryText : theme.faintText;
    const int icon = Metrics::scaled(Metrics::icon);
    Icons::paint(painter, visual({Metrics::sideMargin, 0, icon, height()}), Icon::Add, icon, color);
    painter.setFont(Fonts::font(Fonts::Role::Body));
    painter.setPen(color);
    const int left = Metrics::sideMargin + Metrics::scaled(Metrics::titleIndent);
    painter.drawText(visual({left, 0, width() - left - Metrics::sideMargin, height()}),
                     int(Qt::AlignLeft | Qt::AlignVCenter), text());
}

PaintedButton::Ring AddButton::ring() const
{
    return {QRectF{rect()}.adjusted(Metrics::gap, 2, -Metrics::gap, -2), Metrics::pillRadius};
}
