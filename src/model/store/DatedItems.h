#pragma once

/// Open checklist items with a date, of checklist tasks, as what a query calls `t`: their tasks, but with
/// the title, the date and the place of the item. `item` is its row in the store, `itemID` its id.
#define DATED_ITEMS(joined)                                                                                  \
    "(SELECT i.id AS item, i.sid AS itemID, i.title, i.startDate, NULL AS endDate, i.isAllDay, "             \
    "NULL AS pinnedDate, i.sortOrder, i.createdTime, i.modifiedTime, o.id, o.sid, o.title AS taskTitle, "    \
    "o.status, o.isDeleted, o.isTrashed, o.priority, o.tags, o.assignee, o.projectID FROM " joined           \
    " WHERE i.status = 0 AND i.isDeleted = 0 AND i.startDate IS NOT NULL AND o.kind = 'CHECKLIST') t"

/// To be walked by their dates.
inline constexpr const char *datedItems = DATED_ITEMS(
    "checklistItems i INDEXED BY openChecklistItemsByDate CROSS JOIN tasks o ON o.sid = i.taskID");
/// To be walked by the ids of their tasks.
inline constexpr const char *datedItemsOfTasks =
    DATED_ITEMS("tasks o CROSS JOIN checklistItems i INDEXED BY checklistItemsByTask ON i.taskID = o.sid");

#undef DATED_ITEMS
