#include "integration/scripting/KWProjectsScriptCommand.h"

#include "integration/scripting/KWScriptCommandUtil.h"
#include "integration/scripting/ScriptJson.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"

std::optional<QString> KWProjectsScriptCommand::performDefaultImplementation()
{
    if (!KWScriptCommandUtil::begin(name, description(), with())) return std::nullopt;
    QString lists;
    const Result<void> read =
        KWCoreDataService{kit().manager()}.sync_perform([&](ObjectContext &context) -> Result<void> {
            lists = cx_MTL_JSONArrayFromModels(cx_MTL_modelsFromManagedObjects(
                KWProject::orderedOpenProjects(kit().account().currentUserID(), context)));
            return {};
        });
    return KWScriptCommandUtil::answer(read ? Result<QString>{lists} : read.error());
}
