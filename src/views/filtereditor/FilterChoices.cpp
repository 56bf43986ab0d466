#include "views/filtereditor/FilterChoices.h"

#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeamworker.h"

#include <QSet>

FilterChoices FilterChoices::read(const QString &userID, ObjectContext &context)
{
    FilterChoices choices;
    for (const KWProject *each : KWProject::findProjectsOfUser(userID, ProjectScope::Open, context))
        choices.lists.append(
            {each->sid(), (*each)->isInbox ? KWSmartProject::inbox().displayName() : (*each)->name});
    for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(userID, context))
        choices.folders.append({each->sid(), (*each)->name});
    for (const KWTag *each : KWTag::findTagsOfUser(userID, context))
        choices.tags.append({(*each)->name, (*each)->label});
    QSet<std::int64_t> known;
    const auto members = context.fetch<KWTeamworker>({.where = "isDeleted = 0"});
    for (const KWTeamworker *each : KWTeamworker::sortedByName(members)) {
        if (known.contains((*each)->userServerID)) continue;
        known.insert((*each)->userServerID);
        choices.people.append({QString::number((*each)->userServerID), (*each)->name});
    }
    return choices;
}
