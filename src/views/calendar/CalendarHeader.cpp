#include "views/calendar/CalendarHeader.h"

#include "model/settings/KWLocalizedString.h"
#include "views/calendar/CalendarTitle.h"
#include "views/calendar/CalendarWording.h"
#include "views/calendar/ShownButton.h"
#include "views/controls/IconButton.h"
#include "views/controls/MenuPlace.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TextButton.h"
#include "views/theme/Metrics.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastHeaderWidth = 120;

QStringList kindNames()
{
    return {KWLocalizedString("Day"), KWLocalizedString("Week"), KWLocalizedString("Month")};
}

} // namespace

CalendarHeader::CalendarHeader(QWidget *parent)
    : QWidget(parent)
    , m_title(new CalendarTitle)
    , m_today(new TextButton{KWLocalizedString("Today")})
    , m_kinds(new SegmentedControl{kindNames()})
    , m_kind(new TextButton{kindNames().first(), TextButton::Opens::Menu})
    , m_shown(new ShownButton)
    , m_tray(new IconButton{Icon::Tray, KWLocalizedString("Tasks Without a Date")})
    , m_menu(new IconButton{Icon::More, KWLocalizedString("More")})
    , m_row(new QHBoxLayout{this})
{
    auto *before = new IconButton{Icon::ChevronRight, KWLocalizedString("Page before")};
    before->setMirrored(true);
    auto *after = new IconButton{Icon::ChevronRight, KWLocalizedString("Page after")};
    m_tray->setCheckable(true);
    setMinimumWidth(leastHeaderWidth); // fit() finds what there is room for
    addWidgets(before, after);

    for (auto *each : findChildren<QAbstractButton *>()) {
        each->setFocusPolicy(Qt::TabFocus);
        each->installEventFilter(this);
    }
    connect(before, &IconButton::clicked, this, [this] { Q_EMIT pagesTurned(-1); });
    connect(after, &IconButton::clicked, this, [this] { Q_EMIT pagesTurned(1); });
    connect(m_today, &TextButton::clicked, this, &CalendarHeader::todayRequested);
    connect(m_shown, &ShownButton::clicked, this, &CalendarHeader::shownRequested);
    connect(m_tray, &IconButton::clicked, this, &CalendarHeader::trayToggled);
    connect(m_menu, &IconButton::clicked, this, &CalendarHeader::menuRequested);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &CalendarHeader::fit);
    connectKinds();
}

void CalendarHeader::addWidgets(QWidget *before, QWidget *after)
{
    const std::pair<QWidget *, QString> inOrder[] = {
        {before, u"calendarBefore"_s},     {m_today, u"calendarToday"_s},
        {after, u"calendarAfter"_s},       {m_kinds, u"calendarKinds"_s},
        {m_kind, u"calendarKind"_s},       {m_shown, u"calendarShownButton"_s},
        {m_tray, u"calendarTrayButton"_s}, {m_menu, u"calendarMenuButton"_s},
    };
    m_row->setContentsMargins(Metrics::margin, 0, Metrics::gap, 0);
    m_row->setSpacing(Metrics::grid);
    m_row->addWidget(m_title);
    for (const auto &[widget, name] : inOrder) {
        widget->setObjectName(name);
        if (widget == m_kinds) m_row->addStretch(1);
        m_row->addWidget(widget);
    }
    m_kind->hide();
}

void CalendarHeader::connectKinds()
{
    connect(m_kinds, &SegmentedControl::picked, this,
            [this](int index) { Q_EMIT kindPicked(CalendarPage::Kind(index)); });
    connect(m_kind, &TextButton::clicked, this, [this] {
        auto *menu = new QMenu{this};
        const QStringList names = kindNames();
        for (int index = 0; index < names.size(); ++index) {
            QAction *action = menu->addAction(names[index]);
            action->setCheckable(true);
            action->setChecked(index == m_kinds->chosen());
            connect(action, &QAction::triggered, this,
                    [this, index] { Q_EMIT kindPicked(CalendarPage::Kind(index)); });
        }
        popUpAt(m_kind->rect(), *m_kind, Qt::BottomEdge, *menu);
    });
}

void CalendarHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fit();
}

// What there is no room for goes, one after the other.
void CalendarHeader::fit()
{
    const auto widthOf = [](const QWidget *each) { return each->sizeHint().width() + Metrics::grid; };
    const QMargins margins = m_row->contentsMargins();
    int needed = margins.left() + margins.right() + m_title->shortWidth();
    for (int i = 0; i < m_row->count(); ++i)
        if (QWidget *each = m_row->itemAt(i)->widget(); each && each != m_title && each != m_kind)
            needed += widthOf(each);
    const auto fits = [&](int without) {
        if (needed <= width()) return true;
        needed -= without;
        return false;
    };
    const bool hasKinds = fits(widthOf(m_kinds) - widthOf(m_kind));
    m_kinds->setVisible(hasKinds);
    m_kind->setVisible(!hasKinds);
    m_today->setVisible(fits(widthOf(m_today)));
    m_tray->setVisible(fits(widthOf(m_tray)));
    m_shown->setVisible(fits(widthOf(m_shown)));
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
    m_kind->setText(kindNames().at(int(page.kind)));
    m_kind->setAccessibleName(m_kind->text());
    m_kind->updateGeometry();
    fit();
}

QWidget &CalendarHeader::menuButton() const { return *m_menu; }

QWidget &CalendarHeader::shownButton() const { return *m_shown; }

void CalendarHeader::setHidesSomething(bool hides) { m_shown->setHidesSomething(hides); }

QWidget &CalendarHeader::titlePlace() const { return *m_title; }

void CalendarHeader::setTrayShown(bool isShown) { m_tray->setChecked(isShown); }
