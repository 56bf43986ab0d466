#include "views/taskdetail/ItemDateButton.h"

#include "model/settings/KWLocalizedString.h"
#include "views/tasklist/TaskDateColor.h"
#include "views/theme/Fonts.h"
#include "views/theme/Icons.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int shortestItemDate = 40;

} // namespace

ItemDateButton::ItemDateButton(QWidget *parent) : PaintedButton(parent)
{
    setObjectName(u"checklistItemDate"_s);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setDate({}, {});
}

void ItemDateButton::setDate(const TaskDateText &date, const QString &title)
{
    m_date = date;
    setText(date.text);
    setAccessibleName(KWLocalizedString("Date of “%1”: %2")
                          .arg(title, hasDate() ? date.text : KWLocalizedString("No date")));
    setToolTip(hasDate() ? QString{} : KWLocalizedString("Set a date"));
    updateGeometry();
    update();
}

void ItemDateButton::setOffersDate(bool offersDate)
{
    if (std::exchange(m_offersDate, offersDate) != offersDate) update();
}

QSize ItemDateButton::sizeHint() const
{
    const int content =
        hasDate() ? Fonts::width(Fonts::Role::Secondary, text()) : Metrics::scaled(Metrics::icon);
    return {content + 2 * padding, Metrics::scaled(Metrics::quietButton)};
}

QSize ItemDateButton::minimumSizeHint() const
{
    return sizeHint().boundedTo({Metrics::scaled(shortestItemDate), sizeHint().height()});
}

void ItemDateButton::paintContent(QPainter &painter)
{
    const Theme &theme = Theme::current();
    if (hasDate() || m_offersDate) paintBackground(painter);
    if (hasDate()) {
        painter.setPen(taskDateColor(m_date.tone, theme.faintText));
        Fonts::drawLine(painter, Fonts::Role::Secondary, rect().adjusted(padding, 0, -padding, 0), leading(),
                        text());
    } else if (m_offersDate) {
        Icons::paint(painter, rect(), Icon::Today, Metrics::scaled(Metrics::icon), theme.faintText);
    }
}
