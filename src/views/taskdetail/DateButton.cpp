#include "views/taskdetail/DateButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int dateButtonHeight = 28;
constexpr int dateButtonPadding = 6;
constexpr int shortestDate = 40;

int repeatMark() { return Metrics::scaled(Metrics::icon) - 2; }

} // namespace

DateButton::DateButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(u"detailDate"_s);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setDate({}, false);
}

void DateButton::setDate(const TaskDateText &date, bool repeats)
{
    m_date = date;
    m_repeats = repeats;
    setText(date.text.isEmpty() ? KWLocalizedString("No date") : date.text);
    const QString name = KWLocalizedString("Date: %1").arg(text());
    setAccessibleName(repeats ? KWLocalizedString("%1, repeats").arg(name) : name);
    updateGeometry();
    update();
}

int DateButton::repeatWidth() const { return m_repeats ? repeatMark() + Metrics::gap - 2 : 0; }

QSize DateButton::sizeHint() const
{
    return {Fonts::width(Fonts::Role::Secondary, text()) + repeatWidth() + 2 * dateButtonPadding,
            Metrics::scaled(dateButtonHeight)};
}

QSize DateButton::minimumSizeHint() const { return {Metrics::scaled(shortestDate), sizeHint().height()}; }

void DateButton::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    if (underMouse() || isDown())
        Painting::roundedBox(painter, rect(), Metrics::pillRadius, isDown() ? theme.selection : theme.hover);
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    painter.setPen(m_date.text.isEmpty() ? theme.faintText : taskDateColor(m_date.tone, theme.secondaryText));
    const int textWidth = width() - 2 * dateButtonPadding - repeatWidth();
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual({dateButtonPadding, 0, textWidth, height()}),
                    layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft, text());
    if (m_repeats)
        Icons::paint(painter, visual({width() - dateButtonPadding - repeatMark(), 0, repeatMark(), height()}),
                     Icon::Repeat, repeatMark(), theme.faintText);
    if (hasFocus()) Painting::focusRing(painter, rect(), Metrics::pillRadius);
}

void DateButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
