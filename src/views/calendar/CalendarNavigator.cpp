#include "views/calendar/CalendarNavigator.h"

#include "calendar/CalendarChoices.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWUserDefaults.h"
#include "views/calendar/CalendarHeader.h"
#include "views/calendar/CalendarPane.h"
#include "views/calendar/ShownPopover.h"
#include "views/controls/MenuPlace.h"
#include "views/datepicker/DatePicker.h"

#include <QMenu>

using namespace std::chrono;

namespace {

constexpr std::pair<CalendarPage::Kind, KWCalendarViewMode> modes[] = {
    {CalendarPage::Kind::SingleDay, KWCalendarViewModeDay},
    {CalendarPage::Kind::Week, KWCalendarViewModeWeek},
    {CalendarPage::Kind::Month, KWCalendarViewModeMonth},
};

DayColumns::Weekends weekendsOf(const KWCalendarDisplayConfigurationModel &configuration)
{
    return configuration.showsWeekends ? DayColumns::Weekends::Shown : DayColumns::Weekends::Hidden;
}

} // namespace

CalendarNavigator::CalendarNavigator(CalendarPane &pane, OrvaneKit &kit, KWRepeatInstanceService &repeats,
                                     CXClock &clock)
    : m_pane(pane), m_kit(kit), m_loader(kit, repeats, clock)
{
    connect(&m_loader, &CalendarPageLoader::loaded, this, &CalendarNavigator::take);
    connect(&m_loader, &CalendarPageLoader::failed, this, &CalendarNavigator::failed);
    connect(&m_loader, &CalendarPageLoader::succeeded, this, &CalendarNavigator::succeeded);
    connect(&m_loader, &CalendarPageLoader::succeeded, this, [this] {
        if (!m_pane.view().isDropAsked()) m_pane.view().letGoOfDrop();
    });
    connect(&m_pane, &CalendarPane::pagesTurned, this, &CalendarNavigator::turn);
    connect(&m_pane, &CalendarPane::dayRequested, this, &CalendarNavigator::goTo);
    connect(&m_pane, &CalendarPane::todayRequested, this, &CalendarNavigator::goToNow);
    connect(&m_pane, &CalendarPane::kindRequested, this, &CalendarNavigator::setKind);
    connect(&m_pane, &CalendarPane::dayOpened, this, &CalendarNavigator::showAlone);
    connect(&m_pane, &CalendarPane::dateAsked, this, &CalendarNavigator::askForDate);
    connect(&m_pane.header(), &CalendarHeader::menuRequested, this, &CalendarNavigator::openMenu);
    connect(&m_menu, &CalendarMenu::chosen, this, &CalendarNavigator::save);
    connect(&m_menu, &CalendarMenu::trayToggled, &m_pane, &CalendarPane::setTrayShown);
    connect(&m_menu, &CalendarMenu::dateAsked, this, &CalendarNavigator::askForDate);
    connect(&m_menu, &CalendarMenu::todayAsked, this, &CalendarNavigator::goToNow);
    connect(&m_menu, &CalendarMenu::shownAsked, this, &CalendarNavigator::openShown);
    connect(&m_pane, &CalendarPane::trayShown, this, [this](bool isShown) {
        m_kit.defaults().set(Settings::calendarTray, isShown, m_kit.account().currentUserID());
    });
    connect(&m_pane, &CalendarPane::shownAsked, this, &CalendarNavigator::openShown);
    m_observations.push_back(m_kit.center().addObserver(KWCalendarDisplayConfigurationDidChangeNotification,
                                                        [this](const KWNotification &) { showSign(); }));
    m_registration = m_kit.bus().registerEventBus([this](const StoreChange &change) {
        using enum RecordKind;
        if (change.touches(Project) || change.touches(ProjectGroup) || change.touches(CalSubscription))
            showSign();
    });
}

KWCalendarDisplayConfigurationManager CalendarNavigator::configurations() const
{
    return {m_kit.manager(), m_kit.center(), m_kit.account().currentUserID()};
}

CalendarView::Look CalendarNavigator::look() const
{
    const KWCalendarDisplayConfigurationModel configuration = configurations().configuration();
    return {.weekends = weekendsOf(configuration),
            .hasWeekNumbers = configuration.showsWeekNumbers,
            .firstWeekday = m_loader.firstWeekday(),
            .colorBy = configuration.colorBy};
}

CalendarChoices CalendarNavigator::choices() const
{
    return CalendarChoices::read(m_kit.account().currentUserID(), m_kit.context());
}

// In the head, and in what is open to choose from.
void CalendarNavigator::showSign()
{
    if (!m_day) return;
    const CalendarChoices now = choices();
    m_pane.header().setHidesSomething(now.hideSomething());
    if (m_shown) m_shown->setChoices(now, configurations().configuration().colorBy);
}

void CalendarNavigator::open()
{
    const KWCalendarViewMode mode = configurations().configuration().viewMode;
    for (const auto &[kind, value] : modes)
        if (value == mode) m_kind = kind;
    if (!m_day) m_day = m_loader.today();
    showSign();
    m_pane.setTrayShown(m_kit.defaults().value(Settings::calendarTray, m_kit.account().currentUserID()));
    load();
}

void CalendarNavigator::close() { m_loader.stop(); }

void CalendarNavigator::setKind(CalendarPage::Kind kind)
{
    if (!m_isGoing && m_pane.view().content().page.dayCount > 0) m_day = m_pane.view().spot().day;
    m_kind = kind;
    KWCalendarDisplayConfigurationModel configuration = configurations().configuration();
    for (const auto &[each, mode] : modes)
        if (each == kind) configuration.viewMode = mode;
    save(configuration);
    load();
}

void CalendarNavigator::show(Day day)
{
    const auto weekends = weekendsOf(configurations().configuration());
    DayColumns::show(day, m_kind, weekends, m_pane.locale()) ? goTo(day) : showAlone(day);
}

void CalendarNavigator::showAlone(Day day)
{
    m_day = day;
    m_pane.view().setSpot({.day = day, .time = {}});
    setKind(CalendarPage::Kind::SingleDay);
}

void CalendarNavigator::goTo(Day day)
{
    m_day = day;
    load();
}

void CalendarNavigator::goToNow()
{
    m_isGoingToNow = true;
    goTo(m_loader.today());
}

void CalendarNavigator::turn(int pages)
{
    const Day from = m_isGoing ? *m_day : m_pane.view().spot().day;
    switch (m_kind) {
    case CalendarPage::Kind::SingleDay:
        return goTo(from + days{pages});
    case CalendarPage::Kind::Week:
        return goTo(from + days{7 * pages});
    case CalendarPage::Kind::Month:
        const weekday first = m_loader.firstWeekday();
        // The day where the keyboard is may stand outside the month.
        const Day inMonth = m_isGoing ? from : m_pane.view().content().page.begin;
        return goTo(CalendarPage::around(inMonth, m_kind, first).moved(pages, first).begin);
    }
}

void CalendarNavigator::load()
{
    m_day =
        DayColumns::nextShown(*m_day, m_kind, weekendsOf(configurations().configuration()), m_pane.locale());
    const CalendarPage page = CalendarPage::around(*m_day, m_kind, m_loader.firstWeekday());
    m_isGoing = true;
    // What is shown already is not told again.
    if (m_pane.view().content().page == page) goToCurrent();
    m_loader.load(page);
}

void CalendarNavigator::take(const CalendarPageContent &content)
{
    m_pane.setLook(look());
    m_pane.showPage(content);
    if (m_isGoing) goToCurrent();
}

void CalendarNavigator::goToCurrent()
{
    m_isGoing = false;
    CalendarView &view = m_pane.view();
    if (view.spot().day != *m_day) view.setSpot({.day = *m_day, .time = view.spot().time});
    if (std::exchange(m_isGoingToNow, false)) view.revealNow();
}

void CalendarNavigator::openMenu()
{
    QWidget &button = m_pane.header().menuButton();
    auto *menu = new QMenu{&button};
    menu->setObjectName(QStringLiteral("calendarMenu"));
    m_menu.fill(*menu, {configurations().configuration(), m_pane.isTrayShown()});
    popUpAt(button.rect(), button, Qt::BottomEdge, *menu);
}

void CalendarNavigator::openShown()
{
    m_shown = new ShownPopover{&m_pane};
    connect(m_shown, &ShownPopover::toggled, this,
            [this](const CalendarChoice &choice, bool isShown) { save(choices().with(choice, isShown)); });
    connect(m_shown, &ShownPopover::allRequested, this, [this] { save(choices().withAllShown()); });
    connect(m_shown, &ShownPopover::colorPicked, this, [this](KWCalendarColorBy colorBy) {
        auto other = configurations().configuration();
        other.colorBy = colorBy;
        save(other);
    });
    showSign();
    const QWidget &button = m_pane.header().shownButton();
    m_shown->popUp({button.mapToGlobal(QPoint{}), button.size()});
}

void CalendarNavigator::save(const KWCalendarDisplayConfigurationModel &configuration)
{
    if (const Result<void> saved = configurations().save(configuration); !saved)
        return Q_EMIT failed(saved.error().sentence);
    m_pane.setLook(look());
}

void CalendarNavigator::askForDate()
{
    const int firstWeekday = int(m_loader.firstWeekday().c_encoding()) + 1;
    auto *picker = new DatePicker{{.today = m_loader.today(),
                                   .selected = m_pane.view().spot().day,
                                   .firstWeekday = firstWeekday,
                                   .offersNone = false},
                                  &m_pane};
    connect(picker, &DatePicker::picked, this, [this](std::optional<Day> day) {
        if (day) goTo(*day);
    });
    QWidget &title = m_pane.header().titlePlace();
    picker->popUp(title.mapToGlobal(QPoint{0, title.height()}));
}
