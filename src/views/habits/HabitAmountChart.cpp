#include "views/habits/HabitAmountChart.h"

#include "habits/HabitWording.h"
#include "model/settings/KWLocalizedString.h"
#include "views/habits/HabitLook.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int chartHeight = 84;
constexpr double barShare = 0.7;

} // namespace

HabitAmountChart::HabitAmountChart(QWidget *parent) : HabitDayPlot(parent) { setObjectName(u"habitChart"_s); }

void HabitAmountChart::setMonth(const HabitDetailContent &content)
{
    setDays(content.habit, content.monthDays());
    setAccessibleName(KWLocalizedString("Amounts of the month"));
    setAccessibleDescription(
        KWLocalizedString("%1 in all")
            .arg(HabitWording::amountWithUnit(content.ofMonth.amount, content.habit.unit, locale())));
}

QSize HabitAmountChart::sizeHint() const
{
    return {Metrics::scaled(200), Metrics::scaled(chartHeight) + captionHeight()};
}

double HabitAmountChart::highest() const
{
    double value = habit().goal;
    for (const HabitDay &each : days())
        value = std::max(value, each.value);
    return value > 0 ? value : 1;
}

QRectF HabitAmountChart::placeOf(qsizetype day) const
{
    const double step = double(width()) / double(std::max<qsizetype>(1, days().size()));
    const double left = step * double(isRightToLeft() ? days().size() - 1 - day : day);
    return {left, 0, step, double(Metrics::scaled(chartHeight))};
}

void HabitAmountChart::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const double base = Metrics::scaled(chartHeight);
    const double scale = base / highest();
    const QColor color = HabitLook::color(habit().color);
    for (qsizetype i = 0; i < days().size(); ++i) {
        const HabitDay &each = days().at(i);
        const QRectF column = placeOf(i);
        const double side = column.width() * barShare;
        const double high = std::max(each.value > 0 ? 2.0 : 0.0, each.value * scale);
        QColor fill = color;
        if (each.state != HabitDayState::Done) fill.setAlphaF(0.45F);
        Painting::roundedBox(painter, {column.center().x() - side / 2, base - high, side, high}, 2, fill);
        const unsigned number = unsigned(std::chrono::year_month_day{each.day}.day());
        if (number % 7 != 1) continue;
        QRect text{0, int(base) + 1, int(4 * column.width()), height() - int(base)};
        text.moveLeft(int(column.center().x()) - text.width() / 2);
        text.moveLeft(std::clamp(text.left(), -text.width() / 3, width() - text.width() * 2 / 3));
        paintCaption(painter, text, Qt::AlignHCenter, locale().toString(number));
    }
    const double goal = base - habit().goal * scale;
    painter.setPen(QPen{theme.secondaryText, 1, Qt::DashLine});
    painter.drawLine(QPointF{0, goal + 0.5}, QPointF{double(width()), goal + 0.5});
    painter.setPen(theme.hairline);
    painter.drawLine(QPointF{0, base + 0.5}, QPointF{double(width()), base + 0.5});
}
