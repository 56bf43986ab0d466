#include "views/controls/RowButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

RowButton::RowButton(QWidget *parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
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

void RowButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown())
        Painting::roundedBox(painter, rect(), Metrics::pillRadius, isDown() ? theme.selection : theme.hover);
    const auto visual = [this](int left, int right) {
        return QStyle::visualRect(layoutDirection(), rect(), {left, 0, right - left, height()});
    };
    const bool isMirrored = isRightToLeft();
    int left = padding;
    int right = width() - padding;
    if (m_content.icon) {
        const int icon = Metrics::scaled(Metrics::icon);
        Icons::paint(painter, visual(left, left + icon), *m_content.icon, icon, theme.secondaryText);
        left += Metrics::scaled(Metrics::titleIndent);
    }
    if (!m_content.note.isEmpty()) {
        const int noteLeft = right - Fonts::width(Fonts::Role::Secondary, m_content.note);
        painter.setPen(isDown() ? theme.secondaryText : theme.faintText);
        Fonts::drawLine(painter, Fonts::Role::Secondary, visual(noteLeft, right),
                        isMirrored ? Qt::AlignLeft : Qt::AlignRight, m_content.note);
        right = noteLeft - Metrics::gap;
    }
    painter.setPen(m_content.isDone && !isDown() ? theme.doneText : theme.text);
    Fonts::drawLine(painter, Fonts::Role::Body, visual(left, right),
                    isMirrored ? Qt::AlignRight : Qt::AlignLeft, m_content.text,
                    m_content.isDone ? Fonts::LineStyle::StruckOut : Fonts::LineStyle::Plain);
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::pillRadius);
}

void RowButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
