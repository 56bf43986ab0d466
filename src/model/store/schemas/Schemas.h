#pragma once

#include <string>

/// What each migration adds to the schema, as SQL. A schema that was released never changes: what comes
/// later is a migration of its own.
namespace schemas {

std::string accountsListsAndTasks();
/// Boards, filters, settings of lists, manual positions, habits, focus, occurrences and people.
std::string everyOtherKind();
/// From a completed occurrence to the task that repeats.
std::string repeatSources();
/// From a task to its subtasks, and to what is in the trash.
std::string subtasksAndTrash();
/// To tasks by what lists, calendar and badge ask for.
std::string taskQueries();
/// From a moment to the tasks and checklist items that remind then.
std::string reminders();
/// The words of tasks. Needs the tokenizer, see SearchTokenizer.h.
std::string search();
/// To closed tasks in their order, and to manual positions by what they belong to.
std::string closedTasksAndPlaces();
/// The first day of habits, and to the habits of a user in their order.
std::string habitDays();
/// To the closed and the pinned tasks of a list.
std::string listParts();
/// What the calendar shows.
std::string calendarDisplay();
/// Subscribed calendars and their events.
std::string calendarSubscriptions();
/// What finds the occurrences that have gone on for days.
std::string longOccurrences();
/// The hour at which the day of habits begins.
std::string habitDayStart();
/// From a moment to the habits that remind then.
std::string habitReminders();
/// Whether a list shows events.
std::string eventsInLists();
/// Lists that the calendar hides, and what colours its tasks.
std::string calendarChoices();
/// How long habits were focused on, and to the stretches of focus by what they were spent on.
std::string focusOfHabits();
/// What finds the focus sessions that have gone on for days.
std::string focusSessions();
/// Whether the calendar shows focus sessions.
std::string focusOnCalendar();

} // namespace schemas
