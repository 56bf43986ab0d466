#include "views/calendar/DayHead.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/CalendarDay.h"

#include <QPainter>

using Fonts::Role;

void DayHead::paint(QPainter &painter, const QRect &bounds, Day day, bool isToday, const QLocale &locale)
{
    const int nameHeight = Metrics::scaled(20);
    const int circle = Metrics::scaled(28);
    QRect name = bounds;
    name.setTop(bounds.top() + Metrics::grid);
    name.setHeight(nameHeight);
    paintName(painter, name, day, locale);
    const QRect number{bounds.left(), name.bottom() - 1, bounds.width(), circle};
    paintNumber(painter, number, day, isToday, Tone::Strong, locale);
}

void DayHead::paintName(QPainter &painter, const QRect &bounds, Day day, const QLocale &locale)
{
    painter.setPen(Theme::current().secondaryText);
    const QString name = locale.standaloneDayName(dateOf(day).dayOfWeek(), QLocale::ShortFormat);
    Fonts::drawLine(painter, Role::Caption, bounds, Qt::AlignHCenter, name);
}

void DayHead::paintNumber(QPainter &painter, const QRect &bounds, Day day, bool isToday, Tone tone,
                          const QLocale &locale)
{
    const Theme &theme = Theme::current();
    QColor color = tone == Tone::Quiet ? theme.faintText : theme.text;
    if (isToday) {
        const int side = bounds.height();
        QRectF circle{0, 0, double(side), double(side)};
        circle.moveCenter(QRectF{bounds}.center());
        Painting::roundedBox(painter, circle, side / 2.0, theme.accent);
        color = theme.onAccent;
    }
    painter.setPen(color);
    Fonts::drawLine(painter,
                    tone == Tone::Strong ? Role::DetailTitle
                    : isToday            ? Role::CaptionStrong
                                         : Role::Caption,
                    bounds, Qt::AlignHCenter, locale.toString(dateOf(day).day()));
}
