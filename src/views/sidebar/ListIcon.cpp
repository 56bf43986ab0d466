#include "views/sidebar/ListIcon.h"

#include "lists/KWProjectListNode.h"
#include "model/records/KWSmartProject.h"

#include <array>

Icon iconOfSmartList(const QString &identifier)
{
    static const std::array<std::pair<const KWSmartProject *, Icon>, 12> icons{{
        {&KWSmartProject::all(), Icon::All},
        {&KWSmartProject::today(), Icon::Today},
        {&KWSmartProject::tomorrow(), Icon::Tomorrow},
        {&KWSmartProject::next7days(), Icon::Next7Days},
        {&KWSmartProject::calendar(), Icon::Calendar},
        {&KWSmartProject::focus(), Icon::Focus},
        {&KWSmartProject::habit(), Icon::Habits},
        {&KWSmartProject::assignedToMe(), Icon::AssignedToMe},
        {&KWSmartProject::completed(), Icon::Completed},
        {&KWSmartProject::abandoned(), Icon::Abandoned},
        {&KWSmartProject::trash(), Icon::Trash},
        {&KWSmartProject::summary(), Icon::Summary},
    }};
    for (const auto &[project, icon] : icons)
        if (project->identifier() == identifier) return icon;
    return Icon::All;
}

namespace {

std::optional<Icon> iconOfList(const QString &iconName)
{
    if (iconName == u"shared") return Icon::Shared;
    if (iconName == u"note") return Icon::Note;
    return std::nullopt;
}

} // namespace

std::optional<Icon> iconOfNode(const KWProjectListNode &node, bool isInbox)
{
    if (isInbox) return Icon::Inbox;
    switch (node.type()) {
    case KWProjectListNodeType::project:
        return iconOfList(node.iconName());
    case KWProjectListNodeType::smartProject:
        return iconOfSmartList(node.entityID());
    case KWProjectListNodeType::group:
    case KWProjectListNodeType::team:
    case KWProjectListNodeType::team_personal:
        return Icon::Folder;
    case KWProjectListNodeType::archived:
        return Icon::Archive;
    case KWProjectListNodeType::tag:
        return Icon::Tag;
    case KWProjectListNodeType::filter:
        return Icon::Filter;
    default:
        return std::nullopt;
    }
}
