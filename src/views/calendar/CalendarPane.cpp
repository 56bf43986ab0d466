#include "views/calendar/CalendarPane.h"

#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarHeader.h"
#include "views/calendar/CalendarTray.h"
#include "views/calendar/MonthGridView.h"
#include "views/calendar/TimeGridView.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int widthWithTrayBeside = 640;

}

CalendarPane::CalendarPane(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_header(new CalendarHeader)
    , m_pages(new QStackedWidget)
    , m_timeGrid(new TimeGridView{m_edits, clock})
    , m_month(new MonthGridView{m_edits})
    , m_tray(new CalendarTray{clock})
    , m_row(new QBoxLayout{QBoxLayout::LeftToRight})
{
    setObjectName(u"calendarPane"_s);
    m_timeGrid->setObjectName(u"calendarTimeGrid"_s);
    m_month->setObjectName(u"calendarMonth"_s);
    for (CalendarView *each : views()) {
        each->setAccessibleName(KWLocalizedString("Calendar"));
        m_pages->addWidget(each);
        connectView(*each);
    }
    m_row->setSpacing(0);
    m_row->addWidget(m_pages, 1);
    m_row->addWidget(m_tray);
    m_tray->hide();
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(0, Metrics::gap, 0, 0);
    column->setSpacing(Metrics::gap);
    column->addWidget(m_header);
    column->addLayout(m_row, 1);
    setFocusProxy(m_timeGrid);
    connect(m_header, &CalendarHeader::mousePressed, this, [this] { view().setFocus(Qt::MouseFocusReason); });
    connect(m_header, &CalendarHeader::pagesTurned, this, &CalendarPane::pagesTurned);
    connect(m_header, &CalendarHeader::todayRequested, this, &CalendarPane::todayRequested);
    connect(m_header, &CalendarHeader::kindPicked, this, &CalendarPane::kindRequested);
    connect(m_header, &CalendarHeader::shownRequested, this, &CalendarPane::shownAsked);
    connect(m_header, &CalendarHeader::trayToggled, this, [this] { setTrayShown(!isTrayShown()); });
}

void CalendarPane::connectView(CalendarView &view)
{
    connect(&view, &CalendarView::pagesTurned, this, &CalendarPane::pagesTurned);
    connect(&view, &CalendarView::dayLeftFor, this, &CalendarPane::dayRequested);
    connect(&view, &CalendarView::dayOpened, this, &CalendarPane::dayOpened);
    connect(&view, &CalendarView::selectionChanged, this, [this, &view] {
        if (&view == &this->view()) Q_EMIT selectionChanged();
    });
}

CalendarView &CalendarPane::view() const { return *static_cast<CalendarView *>(m_pages->currentWidget()); }

QList<CalendarView *> CalendarPane::views() const { return {m_timeGrid, m_month}; }

void CalendarPane::showPage(const CalendarPageContent &content)
{
    m_header->setPage(content.page);
    CalendarView &before = view();
    CalendarView &now =
        content.page.kind == CalendarPage::Kind::Month ? static_cast<CalendarView &>(*m_month) : *m_timeGrid;
    now.setContent(content);
    if (&now == &before) return;
    const bool hadKeyboard = before.hasFocus();
    setFocusProxy(&now);
    m_pages->setCurrentWidget(&now);
    if (hadKeyboard) now.setFocus(Qt::OtherFocusReason);
    Q_EMIT selectionChanged();
}

void CalendarPane::setLook(const CalendarView::Look &look)
{
    for (CalendarView *each : views())
        each->setLook(look);
}

void CalendarPane::setTrayShown(bool isShown)
{
    if (!isShown && m_tray->isAncestorOf(focusWidget())) view().setFocus(Qt::OtherFocusReason);
    const bool wasShown = isTrayShown();
    m_tray->setVisible(isShown);
    m_header->setTrayShown(isShown);
    if (isShown != wasShown) Q_EMIT trayShown(isShown);
}

// Beside it a narrow page would have no room for the days.
void CalendarPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool isBeside = width() >= Metrics::scaled(widthWithTrayBeside);
    m_row->setDirection(isBeside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_tray->setPlace(isBeside ? CalendarTray::Place::Beside : CalendarTray::Place::Below);
    m_tray->setMaximumHeight(isBeside ? QWIDGETSIZE_MAX : height() / 3);
}

bool CalendarPane::isTrayShown() const { return !m_tray->isHidden(); }

const CalendarItem *CalendarPane::selectedOwn() const
{
    const CalendarItem *item = view().selectedItem();
    return item && !item->taskID.isEmpty() && !item->occurrence ? item : nullptr;
}

QString CalendarPane::selectedID() const
{
    const CalendarItem *item = selectedOwn();
    return item ? item->entityID : QString{};
}

QString CalendarPane::selectedTask() const
{
    const CalendarItem *item = selectedOwn();
    return item ? item->taskID : QString{};
}

QPoint CalendarPane::placeOfSelected() const
{
    const auto selected = view().selected();
    const QRect bounds = selected ? view().boundsOf(*selected) : QRect{};
    return view().viewport()->mapToGlobal(QPoint{bounds.center().x(), bounds.bottom()});
}

void CalendarPane::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() != Qt::NoModifier || !view().hasFocus()) return QWidget::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_T:
        return Q_EMIT todayRequested();
    case Qt::Key_D:
        return Q_EMIT kindRequested(CalendarPage::Kind::SingleDay);
    case Qt::Key_W:
        return Q_EMIT kindRequested(CalendarPage::Kind::Week);
    case Qt::Key_M:
        return Q_EMIT kindRequested(CalendarPage::Kind::Month);
    case Qt::Key_G:
        return Q_EMIT dateAsked();
    case Qt::Key_S:
        return Q_EMIT shownAsked();
    default:
        QWidget::keyPressEvent(event);
    }
}
