#include "integration/scripting/KWTodayScriptCommand.h"

#include "integration/scripting/KWScriptCommandUtil.h"
#include "integration/scripting/SmartListAnswer.h"
#include "model/records/KWSmartProject.h"

std::optional<QString> KWTodayScriptCommand::performDefaultImplementation()
{
    if (!KWScriptCommandUtil::begin(name, description(), with())) return std::nullopt;
    return KWScriptCommandUtil::answer(smartListAnswer(KWSmartProject::today(), with()));
}
