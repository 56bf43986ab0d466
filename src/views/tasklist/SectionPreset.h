#pragma once

#include "capture/NewTaskContext.h"
#include "lists/KWCategorySections.h"

/// What a task is to be that is made in a section of a list: what the list implies, and above it the day,
/// priority, list, tag, column or assignee that the section stands for.
NewTaskContext newTaskContextOf(const KWCategorySection &section, NewTaskContext ofList);
