#include "views/datepicker/MonthView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/CalendarDay.h"

#include <QApplication>
#include <QPainter>
#include <QTextCharFormat>

using namespace Qt::StringLiterals;

namespace {

constexpr int cellWidth = 40;
constexpr int cellHeight = 32;
constexpr int monthRows = 7; // the names of the weekdays, six weeks
constexpr double todayDotRadius = 1.5;

} // namespace

MonthView::MonthView(Day today, int firstWeekday, QWidget *parent)
    : QCalendarWidget(parent), m_today(dateOf(today))
{
    setObjectName(u"datePickerMonth"_s);
    setAccessibleName(KWLocalizedString("Month"));
    setFirstDayOfWeek(firstWeekday == 1 ? Qt::Sunday : Qt::DayOfWeek(firstWeekday - 1));
    setNavigationBarVisible(false);
    setVerticalHeaderFormat(NoVerticalHeader);
    setHorizontalHeaderFormat(ShortDayNames);
    setDateEditEnabled(false);
    QTextCharFormat names;
    names.setForeground(Theme::current().faintText);
    names.setBackground(Theme::current().popup);
    names.setFont(Fonts::font(Fonts::Role::Caption));
    setHeaderTextFormat(names);
    // The weekend is no warning.
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        setWeekdayTextFormat(day, names);
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Theme::current().popup);
    colors.setColor(QPalette::AlternateBase, Theme::current().popup);
    setPalette(colors);
}

QString MonthView::title() const
{
    return locale().toString(QDate{yearShown(), monthShown(), 1}, u"MMMM yyyy"_s);
}

QSize MonthView::sizeHint() const
{
    return {7 * Metrics::scaled(cellWidth), monthRows * Metrics::scaled(cellHeight)};
}

bool MonthView::hasKeyboard() const { return isAncestorOf(QApplication::focusWidget()); }

void MonthView::paintCell(QPainter *painter, const QRect &cell, QDate date) const
{
    const Theme &theme = Theme::current();
    painter->fillRect(cell, theme.popup);
    const bool isSelected = date == selectedDate();
    const bool isToday = date == m_today;
    QRect box{0, 0, Metrics::scaled(cellHeight), Metrics::scaled(cellHeight)};
    box.setSize(box.size().boundedTo(cell.size()).shrunkBy({1, 1, 1, 1}));
    box.moveCenter(cell.center());
    const QColor mark = hasKeyboard() ? theme.accent : theme.selection;
    if (isSelected) Painting::roundedBox(*painter, box, Metrics::rowRadius, mark);

    QColor color = date.month() == monthShown() ? theme.text : theme.faintText;
    if (isToday) color = theme.accentText;
    if (isSelected && hasKeyboard()) color = theme.onAccent;
    painter->setPen(color);
    painter->setFont(Fonts::font(isToday || isSelected ? Fonts::Role::BodyStrong : Fonts::Role::Body));
    painter->drawText(box, Qt::AlignCenter, locale().toString(date.day()));
    if (!isToday) return;
    const double y = box.bottom() - 2 * todayDotRadius;
    const double x = box.center().x() + 0.5;
    Painting::roundedBox(*painter,
                         {x - todayDotRadius, y - todayDotRadius, 2 * todayDotRadius, 2 * todayDotRadius},
                         todayDotRadius, color);
}
