#include "views/controls/RowButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

RowButton::RowButton(QWidget *parent) : PaintedButton(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void RowButton::setContent(const Content &content)
{
    m_content = content;
    setText(content.text);
    setToolTip(content.text);
    update();
}

QSize RowButton::sizeHint() const { return {Metrics::scaled(120), Metrics::scaled(Metrics::sidebarRow)}; }

void RowButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    paintBackground(painter);
    const auto between = [this](int left, int right) { return visual({left, 0, right - left, height()}); };
    int left = padding;
    int right = width() - padding;
    if (m_content.icon) {
        const int icon = Metrics::scaled(Metrics::icon);
        Icons::paint(painter, between(left, left + icon), *m_content.icon, icon, theme.secondaryText);
        left += Metrics::scaled(Metrics::titleIndent);
    }
    if (!m_content.note.isEmpty()) {
        const Qt::Alignment trailing = QStyle::visualAlignment(layoutDirection(), Qt::AlignRight);
        const int noteLeft = right - Fonts::width(Fonts::Role::Secondary, m_content.note);
        painter.setPen(isDown() ? theme.secondaryText : theme.faintText);
        Fonts::drawLine(painter, Fonts::Role::Secondary, between(noteLeft, right), trailing, m_content.note);
        right = noteLeft - Metrics::gap;
    }
    painter.setPen(m_content.isDone && !isDown() ? theme.doneText : theme.text);
    Fonts::drawLine(painter, Fonts::Role::Body, between(left, right), leading(), m_content.text,
                    m_content.isDone ? Fonts::LineStyle::StruckOut : Fonts::LineStyle::Plain);
}
