#pragma once

#include "capture/KWNewTaskDateReferee.h"
#include "capture/KWNewTaskPriorityReferee.h"
#include "capture/KWNewTaskProjectReferee.h"

class OrvaneKit;
struct NewTaskContext;
struct TitleRecognition;

/// The three that decide what a new task is where the hand, the text, the view and the user's defaults say
/// different things. An add field has its own as long as it lives; a title that is added without a field gets
/// new ones. Main thread.
class NewTaskReferees {
public:
    /// The kit must outlive it.
    explicit NewTaskReferees(OrvaneKit &kit);

    KWNewTaskDateReferee date;
    KWNewTaskPriorityReferee priority;
    KWNewTaskProjectReferee project;

    /// The list that the task goes to, by id: the one for new tasks where nobody names another.
    QString projectID() const;

    /// What the text says.
    void setNlp(const TitleRecognition &found, const QString &text);
    /// What the view implies.
    void setPreset(const NewTaskContext &view);
    /// Forgets what was chosen by hand.
    void restoreToPreset();
    /// Forgets that, and what the view implies.
    void restoreToDefault();

private:
    OrvaneKit &m_kit;
};
