#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"
#include "model/records/KWListIdentifier.h"

#include <QStringList>

#include <optional>

/// What the rows of a list must be besides being in it. What is left empty asks nothing.
struct ListCondition {
    QStringList projectIDs{}; ///< in one of these lists
    QString tag{};            ///< a name
    std::optional<KWTaskPriority> priority{};
    std::optional<Day> from{};  ///< the dates reach into this day or a later one
    std::optional<Day> until{}; ///< and into this day or an earlier one
    QString text{};             ///< found by these words, see SearchPhrase
    QStringList taskIDs{};      ///< one of these tasks
    bool isPinned = false;
};

/// Which rows of a list are wanted. Values only: it may cross threads.
struct ListDataRequest {
    QString userID;
    KWListIdentifier selection{};
    std::int64_t limit = -1; ///< rows at most, from the top; negative: all
    ListCondition condition{};
    /// By what the rows are chosen from the top; by nothing: as the list comes. Only for types of which
    /// isTopFound(): the others leave it as it comes.
    std::optional<KWTaskSortType> sortType{};
    /// Also the closed tasks, behind the open ones and the latest first, at most `completionLimit` of them.
    /// Of a smart list and of a filter those that were closed today.
    bool includeCompleted = false;
    std::int64_t completionLimit = -1; ///< negative: all
    /// These closed tasks instead of the open ones.
    bool onlyClosed = false;
    /// Of Today, Tomorrow and Next 7 Days also the open checklist items with a date that fits.
    bool includeChecklist = false;
    /// Of Today, Tomorrow and Next 7 Days also what of repeating tasks comes later, from today on, as far as
    /// it is stored.
    bool includeRepeat = false;
    /// Of Today, Tomorrow and Next 7 Days also the events of subscribed calendars in those days, but of those
    /// in `hiddenCalendars`.
    bool includeEvents = false;
    QStringList hiddenCalendars{};
    int calendarDays = 90; ///< of the list of a calendar: how many days from today on
    /// No tree is shown: rows come without their place among the children of their parent.
    bool disableTree = false;

    static bool isTopFound(KWTaskSortType sortType);
    /// What asks for its closed tasks alone, as many as `completionLimit`.
    ListDataRequest ofClosedTasks() const;
};

/// Where a page of completed tasks ended.
struct CompletionCursor {
    std::optional<Instant> completionDate; ///< nothing for a closed task without one; those come last
    std::int64_t rowID;
};

/// Which completed tasks are wanted, the latest first. Values only.
struct CompletedTasksRequest {
    QString userID;
    QStringList projectIDs{};                ///< empty: what the smart list Completed shows
    std::optional<Instant> from{};           ///< completed then or later
    std::optional<Instant> until{};          ///< completed before
    std::optional<CompletionCursor> after{}; ///< those that follow
    std::int64_t limit = -1;                 ///< negative: all
};
