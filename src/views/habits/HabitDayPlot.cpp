#include "views/habits/HabitDayPlot.h"

#include "views/habits/HabitPhrases.h"
#include "views/theme/Fonts.h"
#include "views/theme/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

HabitDayPlot::HabitDayPlot(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void HabitDayPlot::setDays(const KWHabitModel &habit, const QList<HabitDay> &days)
{
    m_habit = habit;
    m_days = days;
    update();
}

int HabitDayPlot::captionHeight() { return QFontMetrics{Fonts::font(Fonts::Role::Caption)}.height(); }

void HabitDayPlot::paintCaption(QPainter &painter, const QRect &bounds, Qt::Alignment alignment,
                                const QString &text)
{
    painter.setPen(Theme::current().faintText);
    Fonts::drawLine(painter, Fonts::Role::Caption, bounds, alignment, text);
}

bool HabitDayPlot::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    for (qsizetype i = 0; i < m_days.size(); ++i)
        if (placeOf(i).contains(help->pos())) {
            QToolTip::showText(help->globalPos(), HabitPhrases::spokenDay(m_days.at(i), m_habit, locale()),
                               this);
            return true;
        }
    QToolTip::hideText();
    return true;
}
