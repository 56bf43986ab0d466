#pragma once

#include "calendar/CalendarPageContent.h"

#include <QObject>

class CXClock;
class KWRepeatInstanceService;
class OrvaneKit;

/// Reads the pages of the calendar in the background, those beside the one on show as well. Main thread.
class CalendarPageLoader : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    CalendarPageLoader(OrvaneKit &kit, KWRepeatInstanceService &repeats, const CXClock &clock);
    ~CalendarPageLoader() override;

    /// Has the occurrences of the page generated and reads it; it is read again whenever something on it may
    /// have changed, until another one is asked for.
    void load(const CalendarPage &page);
    /// Reads nothing until the next load().
    void stop();

    /// By what the calendar goes now: settings of the account and the zone in force.
    Day today() const;
    CXTimeZone zone() const;
    std::chrono::weekday firstWeekday() const;

Q_SIGNALS:
    /// The latest page that was asked for; not when it is as it was. From inside load() where it is known
    /// already.
    void loaded(const CalendarPageContent &content);
    void failed(const QString &sentence);
    void succeeded();

private:
    struct State;
    std::unique_ptr<State> m_state;
};
