#include "lists/ShownList.h"

#include "lists/KWTaskCategory.h"
#include "model/records/KWCalendarDisplayConfiguration.h"
#include "model/records/KWColumn.h"
#include "model/records/KWFilter.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTag.h"
#include "model/records/KWTeamworker.h"
#include "model/records/SortOrderContext.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "model/store/Connection.h"
#include "model/store/StoreFailure.h"

#include <algorithm>
#include <tuple>

namespace {

using Group = ShownList::Group;
using Groups = QList<Group>;

bool allAre(KWProjectKind kind, const QList<KWProject *> &lists)
{
    return std::ranges::all_of(lists, [kind](const KWProject *each) { return (*each)->kind == kind; });
}

// What the records say about the kind of list and its sorting.
class ListRecords {
public:
    ListRecords(const KWListIdentifier &list, const QString &userID, ObjectContext &context)
        : m_list(list), m_userID(userID), m_context(context)
    {
    }

    KWTaskSortTypeMenu menu() const
    {
        KWTaskSortTypeMenu menu;
        const QString &id = m_list.entityID;
        switch (m_list.type) {
        case KWListIdentifierType::Project:
            menu.isNormalProject = true;
            if (const KWProject *project = m_context.find<KWProject>(id)) {
                menu.isNoteKind = project->isNoteKind();
                menu.isSharedProject = (*project)->isShared;
                menu.selectedType = (*project)->sortType;
            }
            break;
        case KWListIdentifierType::Group: {
            const QList<KWProject *> lists = listsOfFolder();
            menu.isGroup = true;
            menu.isAllTaskKindInGroup = allAre(KWProjectKindTask, lists);
            menu.isAllNoteKindInGroup = !menu.isAllTaskKindInGroup && allAre(KWProjectKindNote, lists);
            if (const auto *group = m_context.find<KWProjectGroup>(id))
                menu.selectedType = (*group)->sortType;
            break;
        }
        case KWListIdentifierType::Tag:
            menu.isTag = true;
            menu.isParentTag = !childTags(id).isEmpty();
            if (const KWTag *tag = KWTag::findTagNamed(id, m_userID, m_context))
                menu.selectedType = (*tag)->sortType;
            break;
        case KWListIdentifierType::Filter:
            if (const KWFilter *filter = m_context.find<KWFilter>(id)) {
                const Result<CXSmartFilter> read = filter->parsedSmartFilter();
                menu.isNoteKindFilter = read && read->isNoteKind();
                menu.selectedType = (*filter)->sortType;
            }
            break;
        case KWListIdentifierType::SmartProject:
            menu.selectedType = KWSmartProject::sortTypeWithSmartProjectID(id, m_userID, m_context);
            break;
        case KWListIdentifierType::Calendar:
            menu.selectedType = KWTaskSortTypeDate;
            break;
        case KWListIdentifierType::View:
            break;
        }
        return menu;
    }

    QStringList projectIDs() const
    {
        if (m_list.type == KWListIdentifierType::Project) return {m_list.entityID};
        QStringList ids;
        if (m_list.type == KWListIdentifierType::Group)
            for (const KWProject *each : listsOfFolder())
                ids.append((*each)->sid);
        return ids;
    }

    Groups groups(KWTaskSortType sortType) const
    {
        const bool isProject = m_list.type == KWListIdentifierType::Project;
        switch (sortType) {
        case KWTaskSortTypeProject:
            return lists();
        case KWTaskSortTypeTag:
            return tags();
        case KWTaskSortTypeAssignee:
            return isProject ? members() : Groups{};
        case KWTaskSortTypeCustom:
            return isProject ? columns() : Groups{};
        case KWTaskSortTypeDate:
        case KWTaskSortTypePriority:
        case KWTaskSortTypeTitle:
        case KWTaskSortTypeCreatedTime:
        case KWTaskSortTypeModifiedTime:
        case KWTaskSortTypeCompletionDate:
        case KWTaskSortTypePinnedDate:
            break;
        }
        return {};
    }

private:
    QList<KWProject *> listsOfFolder() const
    {
        QList<KWProject *> lists = KWProject::orderedOpenProjects(m_userID, m_context);
        lists.removeIf([this](const KWProject *each) { return (*each)->groupID != m_list.entityID; });
        return lists;
    }

    // Folders stand among the lists by their own place, those of a folder together.
    Groups lists() const
    {
        QHash<QString, std::int64_t> folders;
        for (const KWProjectGroup *each : KWProjectGroup::findGroupsOfUser(m_userID, m_context))
            folders.insert(each->sid(), (*each)->sortOrder);
        QList<KWProject *> projects =
            KWProject::findProjectsOfUser(m_userID, ProjectScope::OpenAndClosed, m_context);
        std::ranges::stable_sort(projects, {}, [&folders](const KWProject *each) {
            const KWProjectModel &list = each->model();
            const bool isInFolder = folders.contains(list.groupID);
            return std::tuple{!list.isInbox, folders.value(list.groupID, list.sortOrder), !isInFolder,
                              isInFolder ? list.groupID : QString{}};
        });
        Groups groups;
        for (const KWProject *each : projects)
            groups.append(
                {each->sid(), each->isInbox() ? KWSmartProject::inbox().displayName() : (*each)->name});
        return groups;
    }

    QList<KWTag *> childTags(const QString &name) const
    {
        QList<KWTag *> tags = KWTag::findTagsOfUser(m_userID, m_context);
        tags.removeIf(
            [&name](const KWTag *each) { return (*each)->parent != name || (*each)->name == name; });
        return tags;
    }

    Groups tags() const
    {
        QList<KWTagModel> tags;
        for (const KWTag *each : KWTag::findTagsOfUser(m_userID, m_context))
            tags.append(each->model());
        Groups groups;
        for (const KWTagModel &each : KWTaskCategory::categoriesSortedByTag(tags, m_list))
            groups.append({each.name, each.label});
        return groups;
    }

    Groups columns() const
    {
        Groups groups;
        if (const KWProject *project = m_context.find<KWProject>(m_list.entityID))
            for (const KWColumn *each : project->orderedColumns())
                groups.append({each->sid(), (*each)->name});
        return groups;
    }

    Groups members() const
    {
        Groups groups;
        const QList<KWTeamworker *> members = m_context.fetch<KWTeamworker>(
            {.where = "projectID = ? AND isDeleted = 0", .values = {m_list.entityID}});
        for (const KWTeamworker *each : KWTeamworker::sortedByName(members))
            groups.append({QString::number((*each)->userServerID), (*each)->name});
        return groups;
    }

    const KWListIdentifier &m_list;
    const QString &m_userID;
    ObjectContext &m_context;
};

KWTaskSortType closedSortType(const KWListIdentifier &list)
{
    return list.entityID == KWSmartProject::trash().identifier() ? KWTaskSortTypeModifiedTime
                                                                 : KWTaskSortTypeCompletionDate;
}

} // namespace

bool ShownList::isOfClosedTasks(const KWListIdentifier &list)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(list.entityID);
    return smart && (smart->isCompleted() || smart->isAbandoned() || smart->isTrash());
}

bool ShownList::mayShowEvents() const
{
    return list.type == KWListIdentifierType::SmartProject &&
           KWSmartProject::isDateSensetiveSmartProjectID(list.entityID);
}

QString ShownList::positionContext() const
{
    const QString &id = list.entityID;
    switch (list.type) {
    case KWListIdentifierType::Project:
        return contextID({.projectID = id});
    case KWListIdentifierType::Group:
        return contextID({.groupID = id});
    case KWListIdentifierType::Tag:
        return contextID({.tagName = id});
    case KWListIdentifierType::Filter:
        return contextID({.filterID = id});
    case KWListIdentifierType::SmartProject:
        return contextID({.smartList = id});
    case KWListIdentifierType::Calendar:
    case KWListIdentifierType::View:
        break;
    }
    return {};
}

Result<ShownList> ShownList::read(const KWListIdentifier &list, const QString &userID, ObjectContext &context)
{
    const ListRecords records{list, userID, context};
    ShownList shown;
    shown.list = list;
    shown.projectIDs = records.projectIDs();
    shown.zone = context.clock().zone();
    shown.today = context.clock().today();
    shown.clientID = context.number("SELECT userServerID FROM users WHERE sid = ?", {userID});
    shown.isSortable = !isOfClosedTasks(list) && !shown.isOfEvents();
    const auto configuration = KWListDisplayConfigurationManager::configuration(list, userID, context);
    shown.showsCompleted = configuration.showsCompleted;
    shown.showsEvents = configuration.showsEvents;
    if (const auto *calendar = context.find<KWCalendarDisplayConfiguration>(userID))
        shown.hiddenCalendars = (*calendar)->hiddenCalendars;
    shown.menu = records.menu();
    if (isOfClosedTasks(list))
        shown.menu.selectedType = closedSortType(list);
    else if (const auto types = shown.menu.sortTypes(); shown.isSortable && !types.contains(shown.sortType()))
        shown.menu.selectedType = types.first();
    shown.groups = records.groups(shown.sortType());
    if (const Result<void> read = context.readResult(); !read) return read.error();
    if (const Result<void> read = shown.readPositions(context.connection()); !read) return read.error();
    return shown;
}

Result<void> ShownList::readPositions(Connection &connection)
{
    try {
        positions = ManualPositions::read(positionContext(), connection);
        return {};
    } catch (const SQLite::Exception &exception) {
        return storeFailure(exception);
    }
}
