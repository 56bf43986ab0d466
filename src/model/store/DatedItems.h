#pragma once

// Rows that stand for something of a task, as what a query calls `t`: `item` is the row in the store,
// `itemID` the id.

/// Open checklist items with a date, of checklist tasks: their tasks, but with the title, the date and the
/// place of the item.
#define DATED_ITEMS(joined)                                                                                  \
    "(SELECT i.id AS item, i.sid AS itemID, i.title, i.startDate, NULL AS endDate, i.isAllDay, "             \
    "NULL AS occurrence, NULL AS pinnedDate, i.sortOrder, i.createdTime, i.modifiedTime, o.id, o.sid, "      \
    "o.title AS taskTitle, "                                                                                 \
    "o.status, o.isDeleted, o.isTrashed, o.priority, o.tags, o.assignee, o.projectID FROM " joined           \
    " WHERE i.status = 0 AND i.isDeleted = 0 AND i.startDate IS NOT NULL AND o.kind = 'CHECKLIST') t"

/// To be walked by their dates.
inline constexpr const char *datedItems = DATED_ITEMS(
    "checklistItems i INDEXED BY openChecklistItemsByDate CROSS JOIN tasks o ON o.sid = i.taskID");
/// To be walked by the ids of their tasks.
inline constexpr const char *datedItemsOfTasks =
    DATED_ITEMS("tasks o CROSS JOIN checklistItems i INDEXED BY checklistItemsByTask ON i.taskID = o.sid");

#undef DATED_ITEMS

/// Later occurrences of tasks, as far as they are stored: the tasks, but with the dates of the occurrence.
/// What has changed since is left out where it shows; of which user they are must be asked.
#define LATER_OCCURRENCES(joined)                                                                            \
    "(SELECT r.id AS item, o.sid || ':' || r.startDate AS itemID, o.title, r.startDate, r.endDate, "         \
    "o.isAllDay, r.startDate AS occurrence, NULL AS pinnedDate, o.sortOrder, o.createdTime, "                \
    "o.modifiedTime, o.id, o.sid, '' AS taskTitle, o.status, o.isDeleted, o.isTrashed, o.priority, o.tags, " \
    "o.assignee, o.projectID, r.userID FROM " joined " WHERE r.instanceType = 0 AND r.isDeleted = 0 AND "    \
    "o.repeatRule <> '' AND o.startDate < r.startDate AND (o.exDates = '[]' OR NOT EXISTS (SELECT 1 FROM "   \
    "json_each(o.exDates) WHERE value = r.startDate))) t"

/// To be walked by their dates.
inline constexpr const char *laterOccurrences = LATER_OCCURRENCES(
    "repeatInstances r INDEXED BY repeatInstancesByStart CROSS JOIN tasks o ON o.sid = r.referenceID");
/// To be walked by the ids of their tasks.
inline constexpr const char *laterOccurrencesOfTasks = LATER_OCCURRENCES(
    "tasks o CROSS JOIN repeatInstances r INDEXED BY repeatInstancesBySource ON r.referenceID = o.sid");

#undef LATER_OCCURRENCES
