#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// What scripts do beyond the commands. Each answers JSON text, or a sentence that says why it could not be
/// done; while nobody is signed in that is said. Main thread.
class ScriptTools {
public:
    /// Longer texts are refused.
    static constexpr qsizetype longestText = 10'000;
    /// What a list answers, at most.
    static constexpr qsizetype mostTasks = 1000;

    ScriptTools(const ScriptSurroundings &with, TaskToolsPort &tasks) : m_with(with), m_tasks(tasks) {}

    /// Saves the task that the typed text means, as `orvane add` does, and answers it. The argument "list"
    /// may say where.
    Result<QString> add(const ScriptCommandDescription &description) const;
    /// Completes the task of that id and answers it; one that repeats is open again, at its next date.
    Result<QString> complete(const ScriptCommandDescription &description) const;
    /// The first tasks of the list of that name or id, as `orvane list` shows them.
    Result<QString> list(const ScriptCommandDescription &description) const;

private:
    Result<QString> textOf(QLatin1StringView tool, const ScriptCommandDescription &description) const;

    const ScriptSurroundings &m_with;
    TaskToolsPort &m_tasks;
};
