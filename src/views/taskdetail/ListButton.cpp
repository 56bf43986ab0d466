#include "views/taskdetail/ListButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int listButtonPadding = 6;
constexpr int dotSpace = 3; // the dot stands in the middle of where an icon would

QRect dotBounds(int height)
{
    return {listButtonPadding + Metrics::scaled(dotSpace), 0, Metrics::scaled(Metrics::dot), height};
}

int nameLeft() { return dotBounds(0).right() + 1 + Metrics::gap; }

} // namespace

ListButton::ListButton(QWidget *parent) : PaintedButton(parent)
{
    setObjectName(u"detailList"_s);
    setToolTip(KWLocalizedString("Move to another list"));
}

void ListButton::setList(const QString &name, const QString &color)
{
    m_color = color;
    setText(name);
    setAccessibleName(KWLocalizedString("List: %1").arg(name));
    updateGeometry();
    update();
}

QSize ListButton::sizeHint() const
{
    return {nameLeft() + Fonts::width(Fonts::Role::Secondary, text()) + listButtonPadding,
            Metrics::scaled(Metrics::quietButton)};
}

void ListButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    paintBackground(painter);
    const QRect dot = visual(dotBounds(height()));
    if (!text().isEmpty()) Painting::dot(painter, QRectF{dot}.center(), m_color);
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(painter, Fonts::Role::Secondary,
                    visual({nameLeft(), 0, width() - nameLeft() - listButtonPadding, height()}), leading(),
                    text());
}
