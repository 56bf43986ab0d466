#include "lists/SidebarEditor.h"

#include "model/account/AccountSettings.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/KWFilterService.h"
#include "model/store/KWTagService.h"
#include "model/store/KWTaskMover.h"
#include "model/store/KWTaskTicker.h"
#include "model/store/TaskBatch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Type = KWProjectListNodeType;
using Done = SidebarEditor::Done;

Result<Done> said(const QString &message, const Result<UndoToken> &done)
{
    if (!done) return done.error();
    return Done{message, *done};
}

Result<Done> unsaid(const Result<void> &done)
{
    if (!done) return done.error();
    return Done{};
}

Result<Done> notFor(const KWProjectListNode &node)
{
    return Error{KWLocalizedString("“%1” stays as it is.").arg(node.title())};
}

} // namespace

Result<Done> SidebarEditor::finishAdding(const QString &name)
{
    const auto adding = m_parts.sidebar.adding();
    if (!adding || name.trimmed().isEmpty()) {
        m_parts.sidebar.endAdding();
        return Done{};
    }
    Result<QString> made = QString{};
    KWListIdentifier list;
    switch (adding->type) {
    case Type::tag:
        made = KWTagService{m_parts.manager, userID()}.create({.label = name, .parent = adding->parentID});
        list = KWListIdentifier::tag(made.valueOr({}));
        break;
    case Type::group:
        made = lists().createFolder(name);
        break;
    default:
        made = lists().createList({.name = name, .groupID = adding->parentID, .kind = adding->kind});
        list = KWListIdentifier::project(made.valueOr({}));
        break;
    }
    if (!made) return made.error();
    m_parts.sidebar.endAdding();
    if (!list.entityID.isEmpty()) m_parts.sidebar.select(list);
    return Done{};
}

// What is saved rebuilds the tree, and the node is gone: here and below.
Result<Done> SidebarEditor::rename(const KWProjectListNode &node, const QString &name)
{
    const QString id = node.entityID();
    switch (node.type()) {
    case Type::project:
        return said({}, lists().renameList(id, name));
    case Type::group:
        return said({}, lists().renameFolder(id, name));
    case Type::tag: {
        const bool wasSelected = node.listIdentifier() == m_parts.sidebar.selectedList();
        const QString title = node.title(); // the node goes
        const auto renamed = KWTagService{m_parts.manager, userID()}.rename(id, name);
        if (!renamed) return renamed.error();
        if (wasSelected) m_parts.sidebar.select(KWListIdentifier::tag(renamed->name));
        const QString joined = KWLocalizedString("“%1” is part of “%2” now").arg(title, name.simplified());
        return said(renamed->isJoined ? joined : QString{}, renamed->undo);
    }
    case Type::calsub_url:
        return said({}, calendars().rename(id, name));
    default:
        return notFor(node);
    }
}

Result<Done> SidebarEditor::setColor(const KWProjectListNode &node, const QString &color)
{
    const QString id = node.entityID();
    switch (node.type()) {
    case Type::project:
        return said({}, lists().setColor(id, color));
    case Type::tag:
        return said({}, KWTagService{m_parts.manager, userID()}.setColor(id, color));
    case Type::calsub_url:
        return said({}, calendars().setColor(id, color));
    default:
        return notFor(node);
    }
}

Result<Done> SidebarEditor::archive(const KWProjectListNode &node)
{
    const auto list = m_parts.sidebar.listOf(node);
    if (!list) return notFor(node);
    const QString message = list->closed ? KWLocalizedString("“%1” is open again").arg(list->name)
                                         : KWLocalizedString("“%1” archived").arg(list->name);
    if (!list->closed) selectAnotherThan(node);
    return said(message, lists().setClosed(list->sid, !list->closed));
}

Result<Done> SidebarEditor::setVisibility(KWSmartProjectVisibility visibility, const QString &smartListID)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(smartListID);
    if (!smart) return Done{};
    return unsaid(
        AccountSettings{m_parts.manager, m_parts.center, userID()}.setVisibility(visibility, *smart));
}

Result<Done> SidebarEditor::setShowsInCalendar(bool shows, const KWProjectListNode &calendar)
{
    const QString id = calendar.entityID();
    return unsaid(
        KWCalendarDisplayConfigurationManager{m_parts.manager, m_parts.center, userID()}.setShowsCalendar(
            shows, id));
}

Result<Done> SidebarEditor::moveToFolder(const KWProjectListNode &list, const QString &groupID)
{
    const QString id = list.entityID();
    return said({}, SidebarArranger{m_parts.manager, userID()}.moveList(id, groupID));
}

Result<Done> SidebarEditor::acceptDrop(const KWProjectListNode &node, const SidebarDrop::Place &place)
{
    const QString id = node.entityID();
    const QString message = KWLocalizedString("“%1” moved").arg(node.title());
    SidebarArranger arranger{m_parts.manager, userID()};
    switch (node.type()) {
    case Type::project:
        return said(message, arranger.moveList(id, place.parentID, place.beforeID));
    case Type::group:
        return said(message, arranger.moveFolder(id, place.beforeID));
    case Type::tag:
        return said(message, arranger.moveTag(id, place.parentID, place.beforeID));
    case Type::filter:
        return said(message, arranger.moveFilter(id, place.beforeID));
    case Type::calsub_url:
        return said(message, arranger.moveCalendar(id, place.beforeID));
    default:
        return notFor(node);
    }
}

bool SidebarEditor::areInTrash(const QStringList &taskIDs) const
{
    return std::ranges::any_of(taskIDs, [this](const QString &each) {
        const KWTask *task = m_parts.manager.MR_defaultContext().find<KWTask>(each);
        return task && (*task)->isTrashed;
    });
}

Result<Done> SidebarEditor::dropTasks(const QStringList &taskIDs, const KWProjectListNode &node)
{
    const QString id = node.entityID();
    const QString title = node.title();
    KWCoreDataManager &manager = m_parts.manager;
    const auto tick = [&](KWTaskStatus status, const QString &message) -> Result<Done> {
        const auto ticked = KWTaskTicker{manager}.updateStatus(status, taskIDs);
        if (!ticked) return ticked.error();
        return Done{message, ticked->undo};
    };
    const Day today = m_parts.manager.store().clock().today();
    switch (SidebarDrop::validateTaskDrop(node)) {
    case SidebarDrop::TaskDrop::MoveToList: {
        const auto from = areInTrash(taskIDs) ? KWTaskMover::From::Trash : KWTaskMover::From::Lists;
        return said(KWLocalizedString("Moved to “%1”").arg(title),
                    KWTaskMover{manager}.move(taskIDs, id, from));
    }
    case SidebarDrop::TaskDrop::AddTag:
        return said(KWLocalizedString("Tagged “%1”").arg(title),
                    TaskBatch{manager}.setTag(taskIDs, id, TaskBatch::Tagging::Add));
    case SidebarDrop::TaskDrop::SetToday:
        return said(KWLocalizedString("Date: %1").arg(title), TaskBatch{manager}.setDay(taskIDs, today));
    case SidebarDrop::TaskDrop::SetTomorrow:
        return said(KWLocalizedString("Date: %1").arg(title),
                    TaskBatch{manager}.setDay(taskIDs, today + std::chrono::days{1}));
    case SidebarDrop::TaskDrop::Complete:
        return tick(KWTaskStatusCompleted, KWLocalizedString("Completed"));
    case SidebarDrop::TaskDrop::Abandon:
        return tick(KWTaskStatusAbandoned, KWLocalizedString("Abandoned"));
    case SidebarDrop::TaskDrop::Delete:
    case SidebarDrop::TaskDrop::None:
        break;
    }
    return notFor(node);
}

std::optional<SidebarEditor::Question>
SidebarEditor::questionBeforeRemoving(const KWProjectListNode &node) const
{
    if (node.type() == Type::tag)
        return Question{KWLocalizedString("Delete Tag"),
                        KWLocalizedString("The tag “%1” is taken from all its tasks.").arg(node.title()),
                        KWLocalizedString("Delete")};
    const auto list = m_parts.sidebar.listOf(node);
    if (!list) return std::nullopt;
    if (!list->isOwner)
        return Question{KWLocalizedString("Exit Shared List"),
                        KWLocalizedString("Are you sure you want to exit from the shared list \"%@\"?")
                            .replace("%@"_L1, list->name),
                        KWLocalizedString("Exit")};
    return Question{KWLocalizedString("Delete List"),
                    list->isShared ? KWLocalizedString("All tasks in the list will be permanently deleted "
                                                       "and the shared members will be removed")
                                   : KWLocalizedString("All tasks in the list will be permanently deleted"),
                    KWLocalizedString("Delete")};
}

void SidebarEditor::remove(const KWProjectListNode &node,
                           const std::function<void(const Result<Done> &)> &completion)
{
    const QString id = node.entityID();
    const QString message = KWLocalizedString("“%1” deleted").arg(node.title());
    switch (node.type()) {
    case Type::project:
        return lists().deleteList(id,
                                  [completion](const Result<void> &deleted) { completion(unsaid(deleted)); });
    case Type::group:
        return completion(said(message, lists().deleteFolder(id)));
    case Type::tag:
        return completion(said(message, KWTagService{m_parts.manager, userID()}.remove(id)));
    case Type::filter:
        return completion(said(message, KWFilterService{m_parts.manager, userID()}.remove(id)));
    case Type::calsub_url:
        return completion(said(message, calendars().remove(id)));
    default:
        return completion(notFor(node));
    }
}

// A closed list is out of the way.
void SidebarEditor::selectAnotherThan(const KWProjectListNode &node)
{
    if (node.listIdentifier() == m_parts.sidebar.selectedList())
        m_parts.sidebar.select(m_parts.sidebar.defaultList());
}
