#pragma once

#include "integration/scripting/ScriptPorts.h"

#include <QVariantMap>

#include <optional>

class OrvaneKit;

/// What the commands work on; all of it outlives them.
struct ScriptSurroundings {
    OrvaneKit &kit;
    SmartListSectionsPort &lists;
    FocusStartPort &focus;
    UsageEventsPort &usage;
};

/// A command as another program sent it.
struct ScriptCommandDescription {
    QVariant directParameter{}; ///< of any type; one that the command does not take leads to no answer
    QVariantMap arguments{};    ///< "from", a text: what the program calls itself

    /// Empty where there is none.
    QString from() const;
};

/// A command that other programs send. One object is one call. Main thread.
class KWScriptCommand {
public:
    /// Takes the call; nothing runs yet. `with` outlives the command.
    KWScriptCommand(const ScriptSurroundings &with, ScriptCommandDescription description)
        : m_with(with), m_description(std::move(description))
    {
    }
    KWScriptCommand(const KWScriptCommand &) = delete;
    KWScriptCommand &operator=(const KWScriptCommand &) = delete;
    virtual ~KWScriptCommand() = default;

    /// Runs the command and answers JSON text, or nothing; never an error.
    virtual std::optional<QString> performDefaultImplementation() = 0;

protected:
    const ScriptSurroundings &with() const { return m_with; }
    OrvaneKit &kit() const { return m_with.kit; }
    const ScriptCommandDescription &description() const { return m_description; }

private:
    const ScriptSurroundings &m_with;
    ScriptCommandDescription m_description;
};

/// Runs "today", "next7days", "search", "projects" or "pomo"; nothing for any other name.
std::optional<QString> performScriptCommand(QStringView name, const ScriptSurroundings &with,
                                            ScriptCommandDescription description);
bool isScriptCommand(QStringView name);
