#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// The user's lists that are not archived, in their order: the inbox first.
class KWProjectsScriptCommand final : public KWScriptCommand {
public:
    static constexpr QLatin1StringView name{"projects"};

    using KWScriptCommand::KWScriptCommand;
    std::optional<QString> performDefaultImplementation() override;
};
