#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// Starts a Pomo of as many seconds as the direct parameter says, a whole number; below 1, of the usual
/// length. Never an answer. Nothing happens while focus is switched off or under way, breaks included.
class KWPomoScriptCommand final : public KWScriptCommand {
public:
    static constexpr QLatin1StringView name{"pomo"};

    using KWScriptCommand::KWScriptCommand;
    std::optional<QString> performDefaultImplementation() override;
};
