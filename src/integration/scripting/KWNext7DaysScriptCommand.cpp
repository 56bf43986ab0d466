#include "integration/scripting/KWNext7DaysScriptCommand.h"

#include "integration/scripting/KWScriptCommandUtil.h"
#include "integration/scripting/SmartListAnswer.h"
#include "model/records/KWSmartProject.h"

std::optional<QString> KWNext7DaysScriptCommand::performDefaultImplementation()
{
    if (!KWScriptCommandUtil::begin(name, description(), with())) return std::nullopt;
    return KWScriptCommandUtil::answer(smartListAnswer(KWSmartProject::next7days(), with()));
}
