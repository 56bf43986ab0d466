#include "views/controls/TextButton.h"

#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int buttonTextPadding = 8;
constexpr int textButtonHeight = 28;
constexpr int menuMark = 12;

} // namespace

TextButton::TextButton(const QString &text, Opens opens, QWidget *parent)
    : QPushButton(text, parent), m_opens(opens)
{
    setAccessibleName(text);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int TextButton::markWidth() const
{
    return m_opens == Opens::Menu ? Metrics::scaled(menuMark) + Metrics::grid : 0;
}

QSize TextButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * buttonTextPadding + markWidth(),
            Metrics::scaled(textButtonHeight)};
}

void TextButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown())
        Painting::roundedBox(painter, rect(), Metrics::pillRadius, isDown() ? theme.selection : theme.hover);
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    painter.setPen(theme.accentText);
    painter.drawText(visual(rect().adjusted(0, 0, -markWidth(), 0)), Qt::AlignCenter, text());
    if (m_opens == Opens::Menu) {
        const int right = width() - buttonTextPadding - markWidth() + Metrics::grid;
        Icons::paint(painter, visual({right, 0, markWidth() - Metrics::grid, height()}), Icon::ChevronDown,
                     Metrics::scaled(menuMark), theme.accentText);
    }
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::pillRadius);
}
