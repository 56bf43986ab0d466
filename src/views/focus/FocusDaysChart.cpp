#include "views/focus/FocusDaysChart.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/wording/DateWording.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int barsHeight = 100;
constexpr int widestBar = 36;
constexpr double barOfColumn = 0.76;
constexpr qsizetype mostNamedDays = 7;

} // namespace

FocusDaysChart::FocusDaysChart(const char *name, const QString &what, QWidget *parent)
    : QWidget(parent), m_what(what)
{
    setObjectName(QLatin1StringView{name});
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FocusDaysChart::setDays(const QList<FocusDay> &days, Day today)
{
    m_days = days;
    m_today = today;
    QStringList all;
    for (const FocusDay &each : days)
        if (each.focused.count() > 0) all << spoken(each);
    setAccessibleName(m_what);
    setAccessibleDescription(all.isEmpty() ? KWLocalizedString("No focus yet") : all.join(u"; "_s));
    update();
}

QSize FocusDaysChart::sizeHint() const
{
    return {Metrics::scaled(200), Metrics::scaled(barsHeight) + Metrics::grid * 2 +
                                      QFontMetrics{Fonts::font(Fonts::Role::Caption)}.height()};
}

// As high as the chart, for the pointer.
QRectF FocusDaysChart::columnOf(qsizetype day) const
{
    const double step = double(width()) / double(std::max<qsizetype>(1, m_days.size()));
    return {step * double(isRightToLeft() ? m_days.size() - 1 - day : day), 0, step,
            double(Metrics::scaled(barsHeight))};
}

// Of a week the weekdays, of a month some days.
QString FocusDaysChart::nameOf(qsizetype day) const
{
    const QDate date = dateOf(m_days[day].day);
    if (m_days.size() <= mostNamedDays)
        return locale().standaloneDayName(date.dayOfWeek(), QLocale::NarrowFormat);
    return date.day() % 7 == 1 ? locale().toString(date.day()) : QString{};
}

QString FocusDaysChart::spoken(const FocusDay &day) const
{
    const QString length =
        DateWording::fullDay(day.day, locale()) + u": "_s + FocusWording::spokenLength(day.focused);
    return day.pomos == 0 ? length : length + u", "_s + FocusWording::pomos(day.pomos);
}

void FocusDaysChart::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const double base = Metrics::scaled(barsHeight);
    std::chrono::seconds most{1};
    for (const FocusDay &each : m_days)
        most = std::max(most, each.focused);
    for (qsizetype i = 0; i < m_days.size(); ++i) {
        const FocusDay &each = m_days[i];
        const QRectF column = columnOf(i);
        const double wide = std::min(column.width() * barOfColumn, double(Metrics::scaled(widestBar)));
        const double high = std::max(2.0, base * double(each.focused.count()) / double(most.count()));
        const bool isToday = each.day == m_today;
        Painting::roundedBox(painter, {column.center().x() - wide / 2, base - high, wide, high},
                             std::min<double>(Metrics::grid, high / 2),
                             isToday ? theme.accent : theme.selection);
        QRect name{0, int(base) + Metrics::grid, int(column.width() * 3),
                   height() - int(base) - Metrics::grid};
        name.moveLeft(int(column.center().x()) - name.width() / 2);
        painter.setPen(isToday ? theme.text : theme.faintText);
        Fonts::drawLine(painter, Fonts::Role::Caption, name, Qt::AlignHCenter, nameOf(i));
    }
}

bool FocusDaysChart::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    for (qsizetype i = 0; i < m_days.size(); ++i)
        if (columnOf(i).contains(help->pos())) QToolTip::showText(help->globalPos(), spoken(m_days[i]), this);
    return true;
}
