#pragma once

#include "integration/scripting/KWScriptCommand.h"

/// The list Next 7 Days by section, as JSON text.
class KWNext7DaysScriptCommand final : public KWScriptCommand {
public:
    static constexpr QLatin1StringView name{"next7days"};

    using KWScriptCommand::KWScriptCommand;
    std::optional<QString> performDefaultImplementation() override;
};
