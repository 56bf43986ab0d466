#pragma once

#include "gui/ClientFixture.h"

#include <memory>

class CalendarPane;
class CalendarView;

/// What a person does on the calendar of the client's window, and what is seen there.
class CalendarHands {
public:
    /// Wednesday, 18 November 2026, nine o'clock: "Walk" today, "Stand up" every day, "Trip" on Friday, and
    /// "Someday" without a date.
    void startWithTasks();
    CalendarPane &pane() const;
    CalendarView &view() const;
    /// Of the items of the page, sorted.
    QStringList titles() const;
    /// In the menu that has just opened.
    void chooseInMenu(const QString &text) const;
    /// The keyboard is the page's again.
    void activate() const;
    void openCalendar() const;
    void openWeek() const;

protected:
    std::unique_ptr<ClientFixture> m_client;
};
