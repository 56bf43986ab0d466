#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// What every command begins with.
class KWScriptCommandUtil {
public:
    /// What a caller must call itself, exactly, to be recorded.
    static constexpr QLatin1StringView recordedCaller{"raycast"};
    static constexpr int usageCategory = 13;

    /// Whether the command may run: the store is the one that this program reads, and somebody is signed in.
    /// Then the use is recorded, and the log has it. Otherwise nothing happens.
    [[nodiscard]] static bool begin(QLatin1StringView command, const ScriptCommandDescription &description,
                                    const ScriptSurroundings &with);

    /// The answer of a command, or nothing where it failed: the log says why then.
    static std::optional<QString> answer(const Result<QString> &text);
};
