#pragma once

#include "calendar/CalendarPageLoader.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "views/calendar/CalendarMenu.h"
#include "views/calendar/CalendarView.h"

#include <QPointer>

class CalendarChoices;
class CalendarPane;
class ShownPopover;

/// Which page of the calendar is shown, and what of it. Main thread.
class CalendarNavigator : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    CalendarNavigator(CalendarPane &pane, OrvaneKit &kit, KWRepeatInstanceService &repeats, CXClock &clock);

    /// Shows the page that was shown last, at first the one with today.
    void open();
    /// Reads nothing while the calendar is not shown.
    void close();
    /// The page of that kind with the day that is current; it is remembered.
    void setKind(CalendarPage::Kind kind);
    /// The page with that day; alone, where the page leaves it out.
    void show(Day day);

Q_SIGNALS:
    void failed(const QString &sentence);
    void succeeded();

private:
    void goTo(Day day);
    void showAlone(Day day);
    void goToNow();
    void turn(int pages);
    void load();
    void take(const CalendarPageContent &content);
    void goToCurrent();
    void openMenu();
    void openShown();
    void showSign();
    void askForDate();
    KWCalendarDisplayConfigurationManager configurations() const;
    CalendarChoices choices() const;
    CalendarView::Look look() const;
    void save(const KWCalendarDisplayConfigurationModel &configuration);

    CalendarPane &m_pane;
    OrvaneKit &m_kit;
    CalendarPageLoader m_loader;
    CalendarMenu m_menu;
    QPointer<ShownPopover> m_shown;
    std::vector<KWNotificationCenter::Observation> m_observations;
    KWEventBus::Registration m_registration;
    CalendarPage::Kind m_kind = CalendarPage::Kind::Week;
    std::optional<Day> m_day; // none before it is first shown
    bool m_isGoing = false;   // to that day, on a page that is not read yet
    bool m_isGoingToNow = false;
};
