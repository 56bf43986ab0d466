#include "views/calendar/DayPopover.h"

#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/DayItemDelegate.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/TextButton.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QScreen>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int dayPopoverWidth = 280;
constexpr int highestItems = 360;

} // namespace

DayPopover::DayPopover(Day day, KWCalendarColorBy colorBy, QWidget *parent)
    : PopupFrame(parent), m_day(day), m_list(new QListView), m_rows(new QStandardItemModel{this})
{
    const QString title = DateWording::fullDay(day, locale());
    setObjectName(u"dayPopover"_s);
    setAccessibleName(title);
    m_list->setObjectName(u"dayItems"_s);
    m_list->setAccessibleName(title);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setItemDelegate(new DayItemDelegate{m_items, colorBy, m_list});
    m_list->setModel(m_rows);
    m_list->installEventFilter(this);
    m_list->viewport()->installEventFilter(this);
    auto *dayAlone = new TextButton{KWLocalizedString("Open Day")};
    dayAlone->setObjectName(u"openDay"_s);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::grid);
    column->setSpacing(Metrics::grid);
    column->addWidget(makePlainLabel(title, Fonts::Role::BodyStrong));
    column->addWidget(m_list);
    column->addWidget(dayAlone, 0, Qt::AlignRight);
    connect(dayAlone, &TextButton::clicked, this, [this] {
        close();
        Q_EMIT dayOpened();
    });
}

void DayPopover::setItems(const std::vector<CalendarItem> &items)
{
    const CalendarItem *current = itemAt(m_list->currentIndex());
    const auto before = current ? std::optional{*current} : std::nullopt;
    int row = std::max(0, m_list->currentIndex().row());
    m_items = items;
    m_rows->clear();
    for (const CalendarItem &each : m_items) {
        auto *item = new QStandardItem{each.title};
        item->setData(CalendarWording::spoken(each, locale()), Qt::AccessibleTextRole);
        item->setData(CalendarWording::time(each, locale()), Qt::ToolTipRole);
        if (before && each.isSameAs(*before)) row = m_rows->rowCount();
        m_rows->appendRow(item);
    }
    m_list->setCurrentIndex(m_rows->index(std::min(row, m_rows->rowCount() - 1), 0));
    if (m_items.empty()) close();
}

void DayPopover::setCurrent(std::size_t item) { m_list->setCurrentIndex(m_rows->index(int(item), 0)); }

const CalendarItem *DayPopover::itemAt(const QModelIndex &index) const
{
    return index.isValid() ? &m_items[std::size_t(index.row())] : nullptr;
}

int DayPopover::heightOfItems() const
{
    const int highest = std::min(Metrics::scaled(highestItems), screen()->availableGeometry().height() / 2);
    return heightOfRows(*m_list, highest);
}

void DayPopover::popUp(const QRect &counter)
{
    m_list->setFixedHeight(heightOfItems());
    const QSize size{Metrics::scaled(dayPopoverWidth), sizeHint().height()};
    place({isRightToLeft() ? counter.right() - size.width() : counter.left(), counter.bottom() + 1}, size);
    show();
    m_list->setFocus(Qt::PopupFocusReason);
    m_list->scrollTo(m_list->currentIndex());
}

bool DayPopover::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTaken =
        watched == m_list->viewport()
            ? (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick ||
               event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease) &&
                  takeMouse(*static_cast<QMouseEvent *>(event))
            : event->type() == QEvent::KeyPress && takeKey(static_cast<QKeyEvent *>(event)->key());
    return isTaken || PopupFrame::eventFilter(watched, event);
}

bool DayPopover::takeKey(int key)
{
    if (key == Qt::Key_Escape && m_press && m_press->isCarrying) {
        m_press.reset();
        Q_EMIT carryingGivenUp();
        return true;
    }
    const CalendarItem *current = itemAt(m_list->currentIndex());
    if (!current) return false;
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        open(*current);
        return true;
    case Qt::Key_Space:
        Q_EMIT completed(CalendarItem{*current});
        return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        Q_EMIT deleted(CalendarItem{*current});
        return true;
    default:
        return false;
    }
}

void DayPopover::open(const CalendarItem &item)
{
    const CalendarItem opening = item;
    close();
    Q_EMIT opened(opening);
}

bool DayPopover::takeMouse(const QMouseEvent &event)
{
    const QPoint point = event.globalPosition().toPoint();
    switch (event.type()) {
    case QEvent::MouseButtonDblClick:
        if (const CalendarItem *item = itemAt(m_list->indexAt(event.pos()))) open(*item);
        return true;
    case QEvent::MouseButtonPress:
        if (event.button() == Qt::LeftButton) press(point);
        return true;
    case QEvent::MouseMove:
        if (event.buttons() & Qt::LeftButton) move(point);
        return true;
    default:
        if (event.button() == Qt::LeftButton) release();
        return true;
    }
}

void DayPopover::press(const QPoint &point)
{
    const QPoint inside = m_list->viewport()->mapFromGlobal(point);
    const QModelIndex index = m_list->indexAt(inside);
    const CalendarItem *item = itemAt(index);
    m_press.reset();
    if (!item) return;
    m_list->setCurrentIndex(index);
    if (DayItemDelegate::boxOf(*item, m_list->visualRect(index), layoutDirection()).contains(inside)) {
        Q_EMIT completed(CalendarItem{*item});
        return;
    }
    m_press = Press{.item = *item, .point = point};
}

// The button is held down in this window, which therefore hears of the mouse wherever it goes.
void DayPopover::move(const QPoint &point)
{
    if (!m_press || m_press->item.isReadOnly) return;
    if ((point - m_press->point).manhattanLength() < QApplication::startDragDistance()) return;
    const bool isOutside = !rect().contains(mapFromGlobal(point));
    if (isOutside)
        Q_EMIT carried(m_press->item, point);
    else if (m_press->isCarrying)
        Q_EMIT carryingGivenUp();
    m_press->isCarrying = isOutside;
}

void DayPopover::release()
{
    const bool isDropped = m_press && m_press->isCarrying;
    m_press.reset();
    if (!isDropped) return;
    close();
    Q_EMIT dropped();
}
