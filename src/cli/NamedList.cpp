#include "cli/NamedList.h"

#include "cli/CommandText.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/store/FoldedName.h"

// The user's own lists come first: one may be called "Today".
Result<KWListIdentifier> listNamed(const QString &name, OrvaneKit &kit)
{
    const QString userID = kit.account().currentUserID();
    if (name.startsWith(u'#')) {
        if (const KWTag *tag = KWTag::findTagNamed(name.mid(1), userID, kit.context()))
            return KWListIdentifier::tag(tag->model().name);
    } else {
        if (const KWProject *project = KWProject::findProjectNamed(name, userID, kit.context()))
            return KWListIdentifier::project(project->sid());
        for (const KWSmartProject *each : KWSmartProject::configurable())
            if (each->isListOfTasks() && foldedName(each->displayName()) == foldedName(name))
                return KWListIdentifier::smartProject(each->identifier());
    }
    return Error{commandText("There is no list “%1”.").arg(name)};
}
