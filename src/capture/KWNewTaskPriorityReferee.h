#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/records/KWConstants.h"

#include <functional>
#include <optional>

/// Where a new task is going to stand: notes have no priority.
enum class NewTaskPlace { TaskList, NotesList, NotesFilter };

/// Decides the priority of a new task: the hand's choice, else the text's, else the view's, else the
/// user's default, which follows changes of the default configuration. Lives as long as its add field;
/// main thread only.
class KWNewTaskPriorityReferee {
public:
    /// Answers the user's default priority as it is now.
    using CurrentDefault = std::function<KWTaskPriority()>;

    KWNewTaskPriorityReferee(KWNotificationCenter &center, CurrentDefault current);
    KWNewTaskPriorityReferee(const KWNewTaskPriorityReferee &) = delete;
    KWNewTaskPriorityReferee &operator=(const KWNewTaskPriorityReferee &) = delete;

    void setManual(std::optional<KWTaskPriority> priority) { m_manual = priority; }
    void setNlp(std::optional<KWTaskPriority> priority) { m_nlp = priority; }
    void setPreset(std::optional<KWTaskPriority> priority) { m_preset = priority; }

    const std::optional<KWTaskPriority> &manual() const { return m_manual; }

    KWTaskPriority priority(NewTaskPlace place) const;

private:
    std::optional<KWTaskPriority> m_manual;
    std::optional<KWTaskPriority> m_nlp;
    std::optional<KWTaskPriority> m_preset;
    KWTaskPriority m_defaults;
    KWNotificationCenter::Observation m_configurationChanged;
};
