#pragma once

#include <QString>

class OrvaneKit;
struct KWTaskModel;
struct NewTaskDraft;

/// "Inbox · Tomorrow, 17:00": the list and the date of a task, for a line below the field in which it is
/// typed.
QString placeOf(const KWTaskModel &task, OrvaneKit &kit);

/// The same of a task that is not saved yet: where it would go.
QString placeOf(const NewTaskDraft &draft, OrvaneKit &kit);

/// "3 tasks added".
QString tasksAddedText(qsizetype count);
