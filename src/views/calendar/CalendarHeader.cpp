#include "views/calendar/CalendarHeader.h"

#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarTitle.h"
#include "views/calendar/CalendarWording.h"
#include "views/controls/IconButton.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TextButton.h"
#include "views/theme/Metrics.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int widthWithTray = 540;

}

CalendarHeader::CalendarHeader(QWidget *parent)
    : QWidget(parent)
    , m_title(new CalendarTitle)
    , m_kinds(new SegmentedControl{
          {KWLocalizedString("Day"), KWLocalizedString("Week"), KWLocalizedString("Month")}})
    , m_tray(new IconButton{Icon::Tray, KWLocalizedString("Tasks Without a Date")})
    , m_menu(new IconButton{Icon::More, KWLocalizedString("More")})
{
    auto *before = new IconButton{Icon::ChevronRight, KWLocalizedString("Page before")};
    before->setMirrored(true);
    auto *after = new IconButton{Icon::ChevronRight, KWLocalizedString("Page after")};
    auto *today = new TextButton{KWLocalizedString("Today")};
    const std::pair<QWidget *, QString> names[] = {
        {before, u"calendarBefore"_s}, {today, u"calendarToday"_s},       {after, u"calendarAfter"_s},
        {m_kinds, u"calendarKinds"_s}, {m_tray, u"calendarTrayButton"_s}, {m_menu, u"calendarMenuButton"_s},
    };
    for (const auto &[widget, name] : names)
        widget->setObjectName(name);
    m_tray->setCheckable(true);

    auto *row = new QHBoxLayout{this};
    row->setContentsMargins(Metrics::margin, 0, Metrics::gap, 0);
    row->setSpacing(Metrics::grid);
    row->addWidget(m_title);
    row->addSpacing(Metrics::grid);
    for (QWidget *each :
         {static_cast<QWidget *>(before), static_cast<QWidget *>(today), static_cast<QWidget *>(after)})
        row->addWidget(each);
    row->addStretch(1);
    for (QWidget *each :
         {static_cast<QWidget *>(m_kinds), static_cast<QWidget *>(m_tray), static_cast<QWidget *>(m_menu)})
        row->addWidget(each);

    for (auto *each : findChildren<QAbstractButton *>()) {
        each->setFocusPolicy(Qt::TabFocus);
        each->installEventFilter(this);
    }
    connect(before, &IconButton::clicked, this, [this] { Q_EMIT pagesTurned(-1); });
    connect(after, &IconButton::clicked, this, [this] { Q_EMIT pagesTurned(1); });
    connect(today, &TextButton::clicked, this, &CalendarHeader::todayRequested);
    connect(m_kinds, &SegmentedControl::picked, this,
            [this](int index) { Q_EMIT kindPicked(CalendarPage::Kind(index)); });
    connect(m_tray, &IconButton::clicked, this, &CalendarHeader::trayToggled);
    connect(m_menu, &IconButton::clicked, this, &CalendarHeader::menuRequested);
}

void CalendarHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_tray->setVisible(width() >= Metrics::scaled(widthWithTray));
}

bool CalendarHeader::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) Q_EMIT mousePressed();
    return QWidget::eventFilter(watched, event);
}

void CalendarHeader::setPage(const CalendarPage &page)
{
    m_title->setTexts(CalendarWording::title(page, locale()), CalendarWording::shortTitle(page, locale()));
    m_kinds->choose(int(page.kind));
}

QWidget &CalendarHeader::menuButton() const { return *m_menu; }

QWidget &CalendarHeader::titlePlace() const { return *m_title; }

void CalendarHeader::setTrayShown(bool isShown) { m_tray->setChecked(isShown); }
