#include "views/controls/TextButton.h"

#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>

namespace {

constexpr int buttonTextPadding = 8;
constexpr int menuMark = 12;

} // namespace

TextButton::TextButton(const QString &text, Opens opens, QWidget *parent)
    : PaintedButton(parent), m_opens(opens)
{
    setText(text);
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int TextButton::markWidth() const
{
    return m_opens == Opens::Menu ? Metrics::scaled(menuMark) + Metrics::grid : 0;
}

QSize TextButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * buttonTextPadding + markWidth(),
            Metrics::scaled(Metrics::quietButton)};
}

void TextButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    paintBackground(painter);
    const bool isQuiet = m_opens == Opens::Menu || !isEnabled();
    const QColor color = isQuiet ? theme.secondaryText : theme.accentText;
    painter.setPen(color);
    painter.drawText(visual(rect().adjusted(0, 0, -markWidth(), 0)), Qt::AlignCenter, text());
    if (m_opens == Opens::Menu) {
        const int right = width() - buttonTextPadding - markWidth() + Metrics::grid;
        Icons::paint(painter, visual({right, 0, markWidth() - Metrics::grid, height()}), Icon::ChevronDown,
                     Metrics::scaled(menuMark), color);
    }
}
