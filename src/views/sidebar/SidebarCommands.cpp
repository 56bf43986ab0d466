#include "views/sidebar/SidebarCommands.h"

#include "app/KWDelayDeleteManager.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "views/alerts/Alert.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarMenu.h"

using Type = KWProjectListNodeType;

SidebarCommands::SidebarCommands(const Parts &parts)
    : m_tree(parts.tree)
    , m_presenter(parts.rooms.sidebar)
    , m_manager(parts.rooms.manager)
    , m_deletes(parts.deletes)
    , m_editor(parts.rooms)
{
    using View = KWProjectListView;
    connect(&m_tree, &View::addRequested, this, [this](const auto *parent) { addTo(*parent); });
    connect(&m_tree, &View::named, this,
            [this](const auto *node, const QString &name) { finishNaming(*node, name); });
    connect(&m_tree, &View::namingAbandoned, this, [this] { m_presenter.endAdding(); });
    connect(&m_tree, &View::removalRequested, this, [this](const auto *node) { remove(*node); });
    connect(&m_tree, &View::editRequested, this,
            [this](const auto *node) { Q_EMIT filterEditRequested(node->entityID()); });
    connect(&m_tree, &View::moveRequested, this, [this](const auto *node, int step) { move(*node, step); });
    connect(&m_tree, &View::nodeDropped, this,
            [this](const auto *node, const auto &place) { report(m_editor.acceptDrop(*node, place)); });
    connect(&m_tree, &View::sidebarDropedTask, this,
            [this](const QStringList &taskIDs, const auto *node) { dropTasks(taskIDs, *node); });
    connect(&m_tree, &View::menuRequested, this,
            [this](const auto *node, const QPoint &position) { showMenu(*node, position); });
}

void SidebarCommands::addList()
{
    const KWProjectListNode *selected = m_presenter.selectedNode();
    const auto list = selected ? m_presenter.listOf(*selected) : std::nullopt;
    const bool isInFolder = list && selected->parent()->type() == Type::group;
    add(Type::project, isInFolder ? list->groupID : QString{});
}

// The parent's id is a copy: the name typed before makes another tree.
void SidebarCommands::add(KWProjectListNodeType type, QString parentID, KWProjectKind kind)
{
    if (!m_tree.finishNaming()) return;
    m_presenter.endAdding();
    m_presenter.beginAdding({type, kind, std::move(parentID)});
    m_tree.editName(type, {});
}

void SidebarCommands::addTo(const KWProjectListNode &parent)
{
    if (parent.type() == Type::group) return add(Type::project, parent.entityID());
    if (parent.type() == Type::tag) return add(Type::tag, parent.entityID());
    if (parent.entityID() == KWSmartProject::tag().identifier()) return add(Type::tag, {});
    if (parent.entityID() == KWSmartProject::filter().identifier()) return Q_EMIT filterEditRequested({});
    if (parent.entityID() == KWSmartProject::subcal().identifier()) return Q_EMIT calendarRequested();
    if (parent.entityID() == KWSmartProject::project().identifier()) add(Type::project, {});
}

void SidebarCommands::finishNaming(const KWProjectListNode &node, const QString &name)
{
    const Type type = node.type();
    const QString id = node.entityID();
    if (!id.isEmpty() && name == node.title()) return;
    const auto done = id.isEmpty() ? m_editor.finishAdding(name) : m_editor.rename(node, name);
    report(done);
    if (!done) m_tree.editName(type, id, name); // nothing typed is lost
}

void SidebarCommands::showMenu(const KWProjectListNode &node, const QPoint &position)
{
    auto *menu = new SidebarMenu{node, m_presenter, &m_tree};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // By kind and id: the tree may be another one by then.
    const auto subject = [this, type = node.type(), id = node.entityID()] { return this->node(type, id); };
    connect(menu, &SidebarMenu::commanded, this,
            [this, type = node.type(), id = node.entityID()](ProjectListCommand command) {
                perform(command, type, id);
            });
    connect(menu, &SidebarMenu::colorChosen, this, [this, subject](const QString &color) {
        if (const KWProjectListNode *found = subject()) report(m_editor.setColor(*found, color));
    });
    connect(menu, &SidebarMenu::folderChosen, this, [this, subject](const QString &groupID) {
        if (const KWProjectListNode *found = subject()) report(m_editor.moveToFolder(*found, groupID));
    });
    m_menu = menu;
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(position);
}

void SidebarCommands::perform(ProjectListCommand command, KWProjectListNodeType type, const QString &entityID)
{
    const KWProjectListNode *found = node(type, entityID);
    if (!found) return;
    const QString parentID = type == Type::smartProject || type == Type::project ? QString{} : entityID;
    switch (command) {
    case ProjectListCommand::NewList:
    case ProjectListCommand::NewNoteList:
        return add(Type::project, type == Type::group ? entityID : QString{},
                   command == ProjectListCommand::NewList ? KWProjectKindTask : KWProjectKindNote);
    case ProjectListCommand::NewFolder:
        return add(Type::group, {});
    case ProjectListCommand::NewTag:
        return add(Type::tag, parentID);
    case ProjectListCommand::NewFilter:
        return Q_EMIT filterEditRequested({});
    case ProjectListCommand::EditFilter:
        return Q_EMIT filterEditRequested(entityID);
    case ProjectListCommand::NewCalendar:
        return Q_EMIT calendarRequested();
    case ProjectListCommand::ReadAgain:
        return Q_EMIT calendarReadingRequested(entityID);
    case ProjectListCommand::ShowInCalendar:
        return report(m_editor.setShowsInCalendar(!m_presenter.isShownInCalendar(*found), *found));
    case ProjectListCommand::Rename:
        return m_tree.editName(type, entityID);
    case ProjectListCommand::Archive:
    case ProjectListCommand::Reopen:
        return report(m_editor.archive(*found));
    case ProjectListCommand::ShowOnlyIfNotEmpty:
        return report(m_editor.setVisibility(m_presenter.isShownIfNotEmpty(*found)
                                                 ? KWSmartProjectVisibilityShown
                                                 : KWSmartProjectVisibilityShownIfNotEmpty,
                                             entityID));
    case ProjectListCommand::Hide:
        return hide(*found);
    case ProjectListCommand::Delete:
    case ProjectListCommand::ExitSharedList:
        return remove(*found);
    case ProjectListCommand::Color:
    case ProjectListCommand::MoveToFolder:
        return; // have menus of their own
    }
}

void SidebarCommands::hide(const KWProjectListNode &node)
{
    const QString id = node.entityID();
    const QString message = KWLocalizedString("“%1” is hidden").arg(node.title());
    const auto before = m_presenter.isShownIfNotEmpty(node) ? KWSmartProjectVisibilityShownIfNotEmpty
                                                            : KWSmartProjectVisibilityShown;
    const auto hidden = m_editor.setVisibility(KWSmartProjectVisibilityHidden, id);
    if (!hidden) return report(hidden);
    Q_EMIT changed(message, [this, id, before] { report(m_editor.setVisibility(before, id)); });
}

void SidebarCommands::remove(const KWProjectListNode &node)
{
    const Type type = node.type();
    const QString id = node.entityID();
    const auto offered = m_presenter.popMenu(node);
    if (!offered.contains(ProjectListCommand::Delete) &&
        !offered.contains(ProjectListCommand::ExitSharedList))
        return;
    if (const auto question = m_editor.questionBeforeRemoving(node)) {
        const int answer = Alert::run({.message = question->title,
                                       .text = question->text,
                                       .buttons = {question->confirmation, KWLocalizedString("Cancel")},
                                       .defaultButton = 1},
                                      m_tree.window());
        if (answer != 0) return;
    }
    m_deletes.commitPending(); // what waits to be deleted may be in it
    if (const KWProjectListNode *found = this->node(type, id))
        m_editor.remove(*found, [commands = QPointer{this}](const Result<SidebarEditor::Done> &done) {
            if (commands) commands->report(done);
        });
}

void SidebarCommands::move(const KWProjectListNode &node, int step)
{
    if (const auto place = SidebarDrop::placeBeside(node, step)) report(m_editor.acceptDrop(node, *place));
}

void SidebarCommands::dropTasks(const QStringList &taskIDs, const KWProjectListNode &node)
{
    if (SidebarDrop::validateTaskDrop(node) == SidebarDrop::TaskDrop::Delete)
        m_deletes.deleteTasks(taskIDs);
    else
        report(m_editor.dropTasks(taskIDs, node));
}

void SidebarCommands::report(const Result<SidebarEditor::Done> &done)
{
    if (!done) return Q_EMIT failed(done.error().sentence);
    if (done->message.isEmpty() || done->undo.isEmpty()) return;
    Q_EMIT changed(done->message, [this, undo = done->undo] {
        if (const Result<void> undone = undo.undo(m_manager); !undone) Q_EMIT failed(undone.error().sentence);
    });
}

KWProjectListNode *SidebarCommands::node(KWProjectListNodeType type, const QString &entityID) const
{
    return m_tree.treeModel().nodeAt(m_tree.treeModel().find(type, entityID));
}
