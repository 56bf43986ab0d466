#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// The tasks that the direct parameter, a text, finds; see ScriptSearch. Nothing for an empty text.
class KWSearchScriptCommand final : public KWScriptCommand {
public:
    static constexpr QLatin1StringView name{"search"};

    using KWScriptCommand::KWScriptCommand;
    std::optional<QString> performDefaultImplementation() override;
};
