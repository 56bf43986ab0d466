#include "views/tasklist/PageHeader.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

PageHeader::PageHeader(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pageHeader"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PageHeader::setTitle(const QString &title)
{
    m_title = title;
    setAccessibleName(title);
    update();
}

void PageHeader::setNote(const QString &note)
{
    if (note == m_note) return;
    m_note = note;
    setAccessibleDescription(note);
    update();
}

QSize PageHeader::sizeHint() const
{
    const QFontMetrics metrics{Fonts::font(Fonts::Role::PageTitle)};
    return {metrics.horizontalAdvance(m_title), metrics.height() + Metrics::grid};
}

void PageHeader::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const QFont &titleFont = Fonts::font(Fonts::Role::PageTitle);
    const QFont &noteFont = Fonts::font(Fonts::Role::Body);
    const QFontMetrics titleMetrics{titleFont};
    const int noteWidth = m_note.isEmpty() ? 0 : Fonts::tabularWidth(noteFont, m_note) + Metrics::gap;
    const QString title = titleMetrics.elidedText(m_title, Qt::ElideRight, width() - noteWidth);
    const int titleWidth = titleMetrics.horizontalAdvance(title);

    const auto mirrored = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter.setFont(titleFont);
    painter.setPen(Theme::current().text);
    painter.drawText(mirrored({0, 0, titleWidth + 1, height()}), side | Qt::AlignVCenter, title);
    painter.setFont(noteFont);
    painter.setPen(Theme::current().secondaryText);
    // On the title's baseline, a hair below its middle.
    Fonts::drawTabular(painter, mirrored({titleWidth + Metrics::gap, 2, noteWidth, height()}), side, m_note);
}
