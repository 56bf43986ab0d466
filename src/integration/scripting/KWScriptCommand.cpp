#include "integration/scripting/KWScriptCommand.h"

#include "integration/scripting/KWNext7DaysScriptCommand.h"
#include "integration/scripting/KWPomoScriptCommand.h"
#include "integration/scripting/KWProjectsScriptCommand.h"
#include "integration/scripting/KWSearchScriptCommand.h"
#include "integration/scripting/KWTodayScriptCommand.h"

#include <algorithm>
#include <array>

namespace {

using Answer = std::optional<QString>;

struct NamedCommand {
    QLatin1StringView name;
    Answer (*perform)(const ScriptSurroundings &with, ScriptCommandDescription description);
};

template <class Command>
Answer perform(const ScriptSurroundings &with, ScriptCommandDescription description)
{
    return Command{with, std::move(description)}.performDefaultImplementation();
}

template <class Command>
constexpr NamedCommand named{Command::name, perform<Command>};

constexpr std::array scriptCommands{named<KWTodayScriptCommand>, named<KWNext7DaysScriptCommand>,
                                    named<KWSearchScriptCommand>, named<KWProjectsScriptCommand>,
                                    named<KWPomoScriptCommand>};

const NamedCommand *scriptCommandNamed(QStringView name)
{
    const auto found =
        std::ranges::find_if(scriptCommands, [name](const NamedCommand &each) { return each.name == name; });
    return found == scriptCommands.end() ? nullptr : &*found;
}

} // namespace

QString ScriptCommandDescription::from() const
{
    const QVariant name = arguments.value(QStringLiteral("from"));
    return name.userType() == QMetaType::QString ? name.toString() : QString{};
}

std::optional<QString> performScriptCommand(QStringView name, const ScriptSurroundings &with,
                                            ScriptCommandDescription description)
{
    const NamedCommand *command = scriptCommandNamed(name);
    return command ? command->perform(with, std::move(description)) : std::nullopt;
}

bool isScriptCommand(QStringView name) { return scriptCommandNamed(name) != nullptr; }
