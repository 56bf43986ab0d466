#include "views/calendar/CalendarTitle.h"

#include "views/theme/Fonts.h"
#include "views/theme/Theme.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

namespace {

int titleHeight() { return QFontMetrics{Fonts::font(Fonts::Role::PageTitle)}.height(); }

} // namespace

CalendarTitle::CalendarTitle(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("calendarPageTitle"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CalendarTitle::setTexts(const QString &text, const QString &shorter)
{
    if (text == m_text) return;
    m_text = text;
    m_shorter = shorter;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize CalendarTitle::sizeHint() const
{
    return {Fonts::width(Fonts::Role::PageTitle, m_text), titleHeight()};
}

int CalendarTitle::shortWidth() const { return Fonts::width(Fonts::Role::PageTitle, m_shorter); }

QSize CalendarTitle::minimumSizeHint() const { return {0, titleHeight()}; }

void CalendarTitle::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.setPen(Theme::current().text);
    Fonts::drawLine(painter, Fonts::Role::PageTitle, rect(),
                    QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft),
                    width() < sizeHint().width() ? m_shorter : m_text);
}
