#include "views/calendar/EventPopover.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/ItemDays.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int popoverWidth = 260;

}

EventPopover::EventPopover(const CalendarItem &event, QWidget *parent) : PopupFrame(parent)
{
    setObjectName(QStringLiteral("eventPopover"));
    setAccessibleName(CalendarWording::spoken(event, locale()));
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(Metrics::grid);
    column->addWidget(makePlainLabel(displayTitle(event.title), Fonts::Role::BodyStrong));
    const ItemDays days = ItemDays::of(event);
    if (days.isOne())
        column->addWidget(makePlainLabel(DateWording::fullDay(days.first, locale()), Fonts::Role::Secondary));
    column->addWidget(makePlainLabel(CalendarWording::time(event, locale()), Fonts::Role::Secondary));
    column->addWidget(makePlainLabel(KWLocalizedString("Of a subscribed calendar: it can only be read."),
                                     Fonts::Role::Caption, QPalette::PlaceholderText));
    setFixedWidth(Metrics::scaled(popoverWidth));
}

void EventPopover::popUp(const QRect &item)
{
    place({item.center().x(), item.bottom()},
          {width(), heightForWidth(width()) > 0 ? heightForWidth(width()) : sizeHint().height()});
    show();
    setFocus(Qt::PopupFocusReason);
}

void EventPopover::popUp(const KWTaskListItemModel &event, const CXTimeZone &zone, const QRect &row,
                         QWidget &parent)
{
    (new EventPopover{CalendarItem::ofEventRow(event, zone), &parent})->popUp(row);
}

void EventPopover::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        close();
    else
        PopupFrame::keyPressEvent(event);
}
