#include "views/habits/HabitYearMap.h"

#include "model/settings/KWLocalizedString.h"
#include "views/habits/HabitLook.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int weeksOfYear = 54;
constexpr double squareShare = 0.8;

} // namespace

HabitYearMap::HabitYearMap(QWidget *parent) : HabitDayPlot(parent) { setObjectName(u"habitYear"_s); }

void HabitYearMap::setYear(const HabitDetailContent &content, std::chrono::weekday firstWeekday)
{
    setDays(content.habit, content.year);
    if (!content.year.isEmpty())
        m_before = int((std::chrono::weekday{content.year.first().day} - firstWeekday).count());
    setAccessibleName(KWLocalizedString("Days of the year"));
    setAccessibleDescription(
        KWLocalizedString("%1 done, %2 due")
            .arg(locale().toString(content.ofYear.done), locale().toString(content.ofYear.due)));
}

double HabitYearMap::pitch() const { return double(width()) / weeksOfYear; }

QSize HabitYearMap::sizeHint() const
{
    constexpr int usualPitch = 6;
    return {weeksOfYear * usualPitch, monthsHeight() + 7 * usualPitch + 2};
}

QRectF HabitYearMap::squareOf(qsizetype day) const
{
    const qsizetype cell = day + m_before;
    const double step = std::min(pitch(), (height() - monthsHeight()) / 7.0);
    const double side = step * squareShare;
    const double along = double(cell / 7) * pitch();
    return {isRightToLeft() ? width() - along - side : along, monthsHeight() + double(cell % 7) * step, side,
            side};
}

QColor HabitYearMap::colorOf(const HabitDay &day) const
{
    const Theme &theme = Theme::current();
    QColor color = HabitLook::color(habit().color);
    if (day.state == HabitDayState::Done) return color;
    if (day.state == HabitDayState::Skipped) return theme.control;
    if (day.value > 0) {
        color.setAlphaF(float(0.2 + 0.5 * day.progress()));
        return color;
    }
    QColor empty = theme.hover;
    if (day.isToCome || !day.isDue) empty.setAlphaF(0.5F);
    return empty;
}

void HabitYearMap::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    const int months = monthsHeight();
    for (qsizetype i = 0; i < days().size(); ++i) {
        const HabitDay &each = days().at(i);
        const QRectF square = squareOf(i);
        Painting::roundedBox(painter, square, 1, colorOf(each));
        const std::chrono::year_month_day date{each.day};
        if (unsigned(date.day()) != 1) continue;
        const QRect name{int(square.left()), 0, int(4.5 * pitch()), months};
        paintCaption(painter, isRightToLeft() ? name.translated(int(square.width()) - name.width(), 0) : name,
                     QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft),
                     locale().standaloneMonthName(int(unsigned(date.month())), QLocale::NarrowFormat));
    }
}

QRectF HabitYearMap::placeOf(qsizetype day) const { return squareOf(day).adjusted(-1, -1, 1, 1); }
