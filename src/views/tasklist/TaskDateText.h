#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "model/store/KWTaskListItemModel.h"

#include <QLocale>
#include <QString>

/// The date of a task in words, and how urgent they are.
struct TaskDateText {
    enum class Tone {
        Plain,   ///< a later day, or a closed task
        Today,   ///< today, still ahead
        Overdue, ///< open, and its end (its start when it has none) has passed
    };

    QString text; ///< empty without a date
    Tone tone = Tone::Plain;

    bool operator==(const TaskDateText &) const = default;
};

/// When a task takes place: what both wordings are made from.
struct TaskDates {
    std::optional<Instant> start;
    std::optional<Instant> end; ///< exclusive when all-day
    bool isAllDay = false;
    bool isClosed = false;
};

/// For a row: "09:30" today, "Yesterday 16:00", "Wed", "24 Nov", "Mon – Fri" for several days. A range
/// within one day shows its start alone. Pure; any thread.
TaskDateText rowDateText(const TaskDates &dates, Instant now, const CXTimeZone &zone, const QLocale &locale);

/// For the detail: "Today, 09:30 – 11:00", "Tomorrow, 17:00", "Sat 28 Nov", "Mon 23 Nov – Fri 27 Nov".
TaskDateText detailDateText(const TaskDates &dates, Instant now, const CXTimeZone &zone,
                            const QLocale &locale);

/// The row's wording of a list item.
TaskDateText dateText(const KWTaskListItemModel &item, Instant now, const CXTimeZone &zone,
                      const QLocale &locale);

/// The row's wording of an event, which is never overdue: "09:30 – 10:30", "All day", "Mon – Fri"; on another
/// day than today "Wed 09:30 – 10:30", "Wed", unless `isUnderItsDay` says that the day stands above.
TaskDateText eventDateText(const KWTaskListItemModel &event, bool isUnderItsDay, Instant now,
                           const CXTimeZone &zone, const QLocale &locale);
