#include "views/taskdetail/ListButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int listButtonHeight = 28;
constexpr int listButtonPadding = 6;
constexpr int dotSpace = 3; // the dot stands in the middle of where an icon would

int nameLeft() { return listButtonPadding + dotSpace + Metrics::dot + Metrics::gap; }

} // namespace

ListButton::ListButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(u"detailList"_s);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
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
            Metrics::scaled(listButtonHeight)};
}

void ListButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown())
        Painting::roundedBox(painter, rect(), Metrics::pillRadius, isDown() ? theme.selection : theme.hover);
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const QRect dot = visual({listButtonPadding + dotSpace, 0, Metrics::dot, height()});
    if (!text().isEmpty()) Painting::dot(painter, QRectF{dot}.center(), m_color);
    painter.setPen(theme.secondaryText);
    Fonts::drawLine(painter, Fonts::Role::Secondary,
                    visual({nameLeft(), 0, width() - nameLeft() - listButtonPadding, height()}),
                    isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft, text());
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::pillRadius);
}

void ListButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
