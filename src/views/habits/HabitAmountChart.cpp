#include "views/habits/HabitAmountChart.h"

#include "habits/HabitWording.h"
#include "model/settings/KWLocalizedString.h"
#include "views/habits/HabitLook.h"
#include "views/habits/HabitPhrases.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int chartHeight = 84;
constexpr double barShare = 0.7;

} // namespace

HabitAmountChart::HabitAmountChart(QWidget *parent) : QWidget(parent)
{
    setObjectName(u"habitChart"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void HabitAmountChart::setMonth(const HabitDetailContent &content)
{
    m_habit = content.habit;
    m_days = content.monthDays();
    setAccessibleName(KWLocalizedString("Amounts of the month"));
    setAccessibleDescription(
        KWLocalizedString("%1 in all")
            .arg(HabitWording::amountWithUnit(content.ofMonth.amount, m_habit.unit, locale())));
    update();
}

QSize HabitAmountChart::sizeHint() const
{
    return {Metrics::scaled(200),
            Metrics::scaled(chartHeight) + QFontMetrics{Fonts::font(Fonts::Role::Caption)}.height()};
}

double HabitAmountChart::highest() const
{
    double value = m_habit.goal;
    for (const HabitDay &each : m_days)
        value = std::max(value, each.value);
    return value > 0 ? value : 1; // a goal from elsewhere may be 0
}

// As wide and high as the whole column of the day, for the pointer.
QRectF HabitAmountChart::barOf(qsizetype day) const
{
    const double step = double(width()) / double(std::max<qsizetype>(1, m_days.size()));
    const double left = step * double(isRightToLeft() ? m_days.size() - 1 - day : day);
    return {left, 0, step, double(Metrics::scaled(chartHeight))};
}

void HabitAmountChart::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const double base = Metrics::scaled(chartHeight);
    const double scale = base / highest();
    const QColor color = HabitLook::color(m_habit.color);
    for (qsizetype i = 0; i < m_days.size(); ++i) {
        const HabitDay &each = m_days.at(i);
        const QRectF column = barOf(i);
        const double side = column.width() * barShare;
        const double high = std::max(each.value > 0 ? 2.0 : 0.0, each.value * scale);
        QColor fill = color;
        if (each.state != HabitDayState::Done) fill.setAlphaF(0.45F);
        Painting::roundedBox(painter, {column.center().x() - side / 2, base - high, side, high}, 2, fill);
        const unsigned number = unsigned(std::chrono::year_month_day{each.day}.day());
        if (number % 7 != 1) continue;
        painter.setPen(theme.faintText);
        QRect text{0, int(base) + 1, int(4 * column.width()), height() - int(base)};
        text.moveLeft(int(column.center().x()) - text.width() / 2);
        text.moveLeft(std::clamp(text.left(), -text.width() / 3, width() - text.width() * 2 / 3));
        Fonts::drawLine(painter, Fonts::Role::Caption, text, Qt::AlignHCenter, locale().toString(number));
    }
    const double goal = base - m_habit.goal * scale;
    painter.setPen(QPen{theme.secondaryText, 1, Qt::DashLine});
    painter.drawLine(QPointF{0, goal + 0.5}, QPointF{double(width()), goal + 0.5});
    painter.setPen(theme.hairline);
    painter.drawLine(QPointF{0, base + 0.5}, QPointF{double(width()), base + 0.5});
}

bool HabitAmountChart::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    for (qsizetype i = 0; i < m_days.size(); ++i)
        if (barOf(i).contains(help->pos()))
            QToolTip::showText(help->globalPos(), HabitPhrases::spokenDay(m_days.at(i), m_habit, locale()),
                               this);
    return true;
}
