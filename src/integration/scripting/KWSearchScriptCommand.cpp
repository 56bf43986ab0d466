#include "integration/scripting/KWSearchScriptCommand.h"

#include "integration/scripting/KWScriptCommandUtil.h"
#include "integration/scripting/ScriptJson.h"
#include "integration/scripting/ScriptSearch.h"

std::optional<QString> KWSearchScriptCommand::performDefaultImplementation()
{
    if (!KWScriptCommandUtil::begin(name, description(), with())) return std::nullopt;
    const QVariant &text = description().directParameter;
    if (text.userType() != QMetaType::QString || text.toString().isEmpty()) return std::nullopt;
    const auto found = ScriptSearch{with()}.find(text.toString(), ScriptSearch::mostTasks);
    if (!found) return KWScriptCommandUtil::answer(found.error());
    return cx_MTL_JSONArrayFromModels(*found);
}
