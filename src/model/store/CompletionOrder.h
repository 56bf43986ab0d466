#pragma once

/// What closed tasks are put in order by, as the index closedTasksInOrder has it: their completion date;
/// one without it counts as completed before all others.
inline constexpr char completionOrder[] = "coalesce(completionDate, -9223372036854775808)";
