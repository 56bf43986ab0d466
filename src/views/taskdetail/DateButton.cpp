#include "views/taskdetail/DateButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int dateButtonPadding = 6;
constexpr int shortestDate = 40;

int repeatMark() { return Metrics::scaled(Metrics::icon) - 2; }

} // namespace

DateButton::DateButton(QWidget *parent) : PaintedButton(parent)
{
    setObjectName(u"detailDate"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setDate({}, {});
}

void DateButton::setDate(const TaskDateText &date, const QString &repeat)
{
    m_date = date;
    m_repeats = !repeat.isEmpty();
    setText(date.text.isEmpty() ? KWLocalizedString("No date") : date.text);
    const QString name = KWLocalizedString("Date: %1").arg(text());
    setAccessibleName(m_repeats ? KWLocalizedString("%1, repeats: %2").arg(name, repeat) : name);
    setToolTip(repeat);
    updateGeometry();
    update();
}

int DateButton::repeatWidth() const { return m_repeats ? repeatMark() + Metrics::gap - 2 : 0; }

QSize DateButton::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Secondary, text()) + repeatWidth() + 2 * dateButtonPadding,
            Metrics::scaled(Metrics::quietButton)};
}

QSize DateButton::minimumSizeHint() const { return {Metrics::scaled(shortestDate), sizeHint().height()}; }

void DateButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    paintBackground(painter);
    painter.setPen(m_date.text.isEmpty() ? theme.faintText : taskDateColor(m_date.tone, theme.secondaryText));
    const int textWidth = width() - 2 * dateButtonPadding - repeatWidth();
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual({dateButtonPadding, 0, textWidth, height()}),
                    leading(), text());
    if (m_repeats)
        Icons::paint(painter, visual({width() - dateButtonPadding - repeatMark(), 0, repeatMark(), height()}),
                     Icon::Repeat, repeatMark(), theme.faintText);
}
