#include "lists/ProjectListMenu.h"

#include "model/records/KWSmartProject.h"

namespace {

using enum ProjectListCommand;
using Commands = QList<ProjectListCommand>;

Commands ofSmartList(const QString &identifier)
{
    if (identifier == KWSmartProject::project().identifier()) return {NewList, NewNoteList, NewFolder};
    if (identifier == KWSmartProject::tag().identifier()) return {NewTag, ShowOnlyIfNotEmpty, Hide};
    if (identifier == KWSmartProject::filter().identifier()) return {NewFilter, ShowOnlyIfNotEmpty, Hide};
    if (identifier == KWSmartProject::subcal().identifier()) return {NewCalendar};
    if (identifier == KWSmartProject::calendar().identifier()) return {};
    return {ShowOnlyIfNotEmpty, Hide};
}

Commands ofList(const KWProjectModel &list)
{
    const ProjectListCommand end = list.isOwner ? Delete : ExitSharedList;
    if (list.isInbox) return {NewList, NewNoteList, NewFolder};
    if (list.closed) return {Reopen, end};
    if (!list.teamID.isEmpty()) return {Rename, Color, Archive, end};
    return {Rename, Color, MoveToFolder, Archive, end};
}

} // namespace

QList<ProjectListCommand> projectListMenu(const KWProjectListNode &node,
                                          const std::optional<KWProjectModel> &list)
{
    switch (node.type()) {
    case KWProjectListNodeType::smartProject:
        return ofSmartList(node.entityID());
    case KWProjectListNodeType::project:
        return list ? ofList(*list) : Commands{};
    case KWProjectListNodeType::group:
        return {NewList, NewNoteList, Rename, Delete};
    case KWProjectListNodeType::team_personal:
        return {NewList, NewNoteList, NewFolder};
    case KWProjectListNodeType::tag:
        // Tags are two deep.
        return node.parent() && node.parent()->type() == KWProjectListNodeType::tag
                   ? Commands{Rename, Color, Delete}
                   : Commands{NewTag, Rename, Color, Delete};
    case KWProjectListNodeType::filter:
        return {EditFilter, Delete};
    case KWProjectListNodeType::calsub_url:
        return {ReadAgain, ShowInCalendar, Rename, Color, Delete};
    default:
        return {};
    }
}
