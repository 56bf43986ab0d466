#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class Connection;
class ObjectContext;

/// Something with a date, as it is stored: a task or an event of a subscribed calendar, a later occurrence of
/// one, an item of a checklist, a habit on a day, a focus session. A plain value, read in bulk.
struct DatedThing {
    enum class Kind : std::uint8_t { Task, ChecklistItem, Event, Habit, Focus };

    Kind kind = Kind::Task;
    QString sid;    ///< of the task or event, also where it is an occurrence of it; of the session
    QString taskID; ///< the task, or the one that the item is in; empty for all others
    std::optional<Instant> occurrence; ///< the start of a later one, and of each day of a habit
    QString listID;                    ///< of the list or calendar
    QString title;
    QString color; ///< "#rrggbb" of the list or calendar; empty for none
    KWTaskPriority priority = KWTaskPriorityNone;
    bool isAllDay = false;
    bool repeats = false;
    bool isClosed = false;
    bool isReadOnly = false;
    Instant startDate;
    std::optional<Instant> endDate; ///< exclusive
};

/// Which of them are wanted: those of subscribed calendars and of the lists that the smart list All shows
/// that take place in [from, to), which is what starts in it or has begun before and ends later than `from`.
struct DatedThingsRequest {
    QString userID;
    Instant from;
    Instant to;
    bool includeCompleted = false; ///< and abandoned tasks
    bool includeChecklist = false; ///< open items with a date of their own
    bool includeRepeat = false;    ///< later occurrences, as far as they are stored
    QStringList hiddenCalendars{}; ///< ids; their events are left out
    QStringList hiddenLists{};     ///< ids; their tasks are left out, with occurrences and items
};

/// Tasks, their occurrences, items, events and their occurrences, each by their start, then priority, then
/// manual order.
Result<std::vector<DatedThing>> readDatedThings(const DatedThingsRequest &request, ObjectContext &context);

/// Which events of subscribed calendars are wanted, of those that take place in [from, to).
struct DatedEventsRequest {
    QString userID;
    Instant from;
    Instant to;
    bool includeRepeat = true;     ///< later occurrences, as far as they are stored
    QStringList hiddenCalendars{}; ///< ids; their events are left out
    QString calendar{};            ///< the id of the only one that is wanted; empty: all
    std::int64_t limit = -1;       ///< events at most, and as many occurrences; negative: all
};

/// Events and their occurrences, each by their start.
Result<std::vector<DatedThing>> readDatedEvents(const DatedEventsRequest &request, Connection &connection);
/// How many there are of each calendar, by its id; those that have none are left out. The limit is not looked
/// at, and occurrences are counted.
Result<QHash<QString, int>> countDatedEvents(const DatedEventsRequest &request, Connection &connection);
