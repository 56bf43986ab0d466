#pragma once

#include "habits/HabitPageLoader.h"
#include "model/events/KWEventBus.h"

class HabitDetailView;
class HabitPane;

/// Which habits are shown, and which month of which one. Main thread.
class HabitNavigator : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    HabitNavigator(HabitPane &pane, HabitDetailView &detail, OrvaneKit &kit);

    void open();
    void close() { m_loader.stop(); }
    /// Selects it as soon as it is read, among the archived ones if it is one.
    void showHabit(const QString &habitID);
    Day today() const { return m_loader.today(); }
    std::chrono::weekday firstWeekday() const { return m_loader.firstWeekday(); }

Q_SIGNALS:
    void failed(const QString &sentence);

private:
    void takePage(const HabitPageContent &content);
    void selectFirst(const HabitPageContent &content);
    void takeDetail(const HabitDetailContent &content);
    void showDetailOf(const QString &habitID);
    void showFocus();
    void turnMonths(int months);
    void readFolding();
    void saveFolding();

    HabitPane &m_pane;
    HabitDetailView &m_detail;
    OrvaneKit &m_kit;
    HabitPageLoader m_loader;
    QString m_habitID;          // of the detail
    QString m_wanted;           // to be selected
    std::optional<Day> m_month; // the one of today without
    Day m_today{};
    bool m_isRead = false;
    KWEventBus::Registration m_registration;
};
