#pragma once

#include "calendar/CalendarItem.h"
#include "model/store/KWTaskEditor.h"
#include "views/calendar/CalendarSpot.h"
#include "views/tasklist/OccurrenceActions.h"

#include <QObject>
#include <QStringList>

#include <functional>

class BatchActions;
class CalendarPane;
class CXClock;
class NewTaskService;
class OrvaneKit;

/// Carries out what is asked for in the calendar, each in one save that can be taken back. What cannot be
/// done says so. Main thread.
class CalendarController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Rooms {
        OrvaneKit &kit;
        CXClock &clock;
        NewTaskService &newTasks;
        BatchActions &actions;
    };
    CalendarController(CalendarPane &pane, const Rooms &rooms);

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    /// The task is to be shown, with its item if it is one of a checklist.
    void opened(const QString &taskID);
    /// The day of a habit, `place` is where it stands on the screen.
    void habitOpened(const QString &habitID, Day day, const QRect &place);
    /// The page of focus is to be shown.
    void focusOpened();
    void habitChecked(const QString &habitID, Day day, bool takesBack);

private:
    void move(const CalendarItem &item, const CalendarItem &there);
    /// Asks for which occurrences; without an answer nothing is moved.
    void moveOccurrence(const TaskOccurrence &occurrence, const TaskOccurrences::Dates &to,
                        const CalendarItem &there);
    void create(const QString &title, const CalendarItem &there);
    void complete(const CalendarItem &item);
    void remove(const CalendarItem &item);
    void open(const CalendarItem &item, const QRect &place);
    void openMenu(const CalendarItem &item, const QPoint &place);
    void schedule(const QStringList &taskIDs, const CalendarSpot &spot);

    /// Tells why it cannot be changed here, if so.
    bool refuses(const CalendarItem &item);
    TaskOccurrence occurrenceOf(const CalendarItem &item) const;
    Result<UndoToken> setDates(const QString &taskID, const CalendarItem &there);
    QString whenText(const CalendarItem &there) const;
    void report(const QList<UndoToken> &done, const QString &message);
    KWDateTime dateOf(LocalTime time, const CalendarItem &item) const;

    CalendarPane &m_pane;
    Rooms m_rooms;
    KWTaskEditor m_editor;
    OccurrenceActions m_occurrences;
};
