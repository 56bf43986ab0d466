#pragma once

#include <QString>

class CXClock;
class OrvaneKit;
struct KWTaskModel;
struct NewTaskDraft;

/// "Inbox · Tomorrow, 17:00": the list and the date of a task, for a line below the field in which it is
/// typed.
QString placeOf(const KWTaskModel &task, OrvaneKit &kit);

/// The same of a task that is not saved yet: where it would go.
QString placeOf(const NewTaskDraft &draft, OrvaneKit &kit);

/// The list that it would go to: "Inbox", "New list “Garden”".
QString listNameOf(const NewTaskDraft &draft, OrvaneKit &kit);

/// "Tomorrow, 17:00, repeats"; empty without a date.
QString dateTextOf(const KWTaskModel &task, const CXClock &clock);

/// "3 tasks added".
QString tasksAddedText(qsizetype count);
