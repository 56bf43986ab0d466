#pragma once

#include "integration/scripting/ScriptSearch.h"
#include "integration/scripting/ScriptTools.h"

/// Everything that stands behind the objects on the bus while the store is open. Main thread.
class ScriptingRoom {
public:
    /// All of it outlives the room.
    ScriptingRoom(const ScriptSurroundings &with, TaskToolsPort &tasks, ScriptOpenPort &windows)
        : m_with(with), m_tools(m_with, tasks), m_search(m_with), m_windows(windows)
    {
    }

    const ScriptSurroundings &with() const { return m_with; }
    const ScriptTools &tools() const { return m_tools; }
    const ScriptSearch &search() const { return m_search; }
    ScriptOpenPort &windows() const { return m_windows; }

private:
    const ScriptSurroundings m_with;
    ScriptTools m_tools;
    ScriptSearch m_search;
    ScriptOpenPort &m_windows;
};
