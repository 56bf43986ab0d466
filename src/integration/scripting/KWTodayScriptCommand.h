#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// The list Today by section, as JSON text.
class KWTodayScriptCommand final : public KWScriptCommand {
public:
    static constexpr QLatin1StringView name{"today"};

    using KWScriptCommand::KWScriptCommand;
    std::optional<QString> performDefaultImplementation() override;
};
