#pragma once

#include "model/records/TaskRepetition.h"
#include "model/store/TaskCopies.h"

// What closing and changing occurrences of repeating tasks is made of, inside of one save; docs/repeating.md.

/// By what repeating tasks of the task's account go at this moment.
TaskRepetition::Now repetitionNow(const KWTask &task);
/// Where the task goes on to; nothing when it does not repeat or this is the last time.
std::optional<TaskRepetition> nextRepetition(const KWTask &task);

/// A closed copy of the task as it stands, with copies of the subtasks that go along: it says what was done,
/// repeats no more and reminds of nothing.
KWTask &leaveClosedCopy(KWTask &task, KWTaskStatus status);
/// A copy of the task, repeating like it, with attachments and copies of the subtasks that go along: as it
/// stands, or begun again at that occurrence.
KWTask &leaveOpenCopy(KWTask &task, const TaskRepetition *occurrence = nullptr);

/// Takes the task, with what goes along, to that occurrence: open, its checklist unticked.
void goOnTo(KWTask &task, const TaskRepetition &occurrence);
/// Closes it and what is open below it.
void closeWithSubtasks(KWTask &task, KWTaskStatus status);
