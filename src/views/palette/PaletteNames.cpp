#include "views/palette/PaletteNames.h"

#include "app/MenuTable.h"
#include "lists/KWProjectListPresenter.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "views/menu/MainMenu.h"
#include "views/sidebar/ListIcon.h"

#include <QAction>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

FoundRow listRow(const KWListIdentifier &list, const QString &title)
{
    return {.kind = FoundRow::Kind::List,
            .id = u"list:"_s + list.userDefaultEncode(),
            .title = title,
            .list = list};
}

QString kindOf(const KWProjectListNode &node)
{
    if (node.parent() && node.parent()->type() == KWProjectListNodeType::archived)
        return KWLocalizedString("Archived List");
    switch (node.type()) {
    case KWProjectListNodeType::group:
        return KWLocalizedString("Folder");
    case KWProjectListNodeType::tag:
        return KWLocalizedString("Tag");
    case KWProjectListNodeType::filter:
        return KWLocalizedString("Filter");
    case KWProjectListNodeType::calsub_url:
        return KWLocalizedString("Calendar");
    default:
        return KWLocalizedString("List");
    }
}

// A section of the sidebar is named as a smart list is.
bool isHeading(const KWProjectListNode &node)
{
    const KWSmartProject *smart = KWSmartProject::withIdentifier(node.entityID());
    return node.type() == KWProjectListNodeType::smartProject && smart && !smart->isListOfTasks();
}

void addNodes(const KWProjectListNode &node, const QString &inboxID, QList<FoundRow> &rows)
{
    for (const auto &each : node.children()) {
        if (const auto list = each->listIdentifier(); list && !isHeading(*each)) {
            rows.append(listRow(*list, each->title()));
            rows.last().note = kindOf(*each);
            rows.last().icon = iconOfNode(*each, list->entityID == inboxID);
            rows.last().color = each->color();
        }
        addNodes(*each, inboxID, rows);
    }
}

// Those that the sidebar does not show can be opened all the same.
void addHiddenSmartLists(QList<FoundRow> &rows)
{
    QSet<QString> shown;
    for (const FoundRow &each : std::as_const(rows))
        shown.insert(each.list.entityID);
    for (const KWSmartProject *each : KWSmartProject::configurable()) {
        if (!each->isListOfTasks() || shown.contains(each->identifier())) continue;
        rows.append(listRow(KWListIdentifier::smartProject(each->identifier()), each->displayName()));
        rows.last().note = KWLocalizedString("List");
        rows.last().icon = iconOfSmartList(each->identifier());
    }
}

// The row of the list that the command opens, none for any other command.
FoundRow *rowOpenedBy(const MenuEntry &entry, const QAction &action, QList<FoundRow> &rows)
{
    if (entry.menu != MenuTitle::Go) return nullptr;
    const auto opens = [&action](const FoundRow &row) {
        const bool canBeOpened =
            row.list.type == KWListIdentifierType::SmartProject || row.icon == Icon::Inbox;
        return row.kind == FoundRow::Kind::List && canBeOpened && row.title == action.text();
    };
    const auto found = std::ranges::find_if(rows, opens);
    return found == rows.end() ? nullptr : &*found;
}

void addCommands(MainMenu &menu, QList<FoundRow> &rows)
{
    for (const MenuEntry &each : menuEntries()) {
        if (each.command == MenuCommand::OpenPalette) continue;
        const QAction &action = menu.action(each.command);
        const QString keys = action.shortcut().toString(QKeySequence::NativeText);
        if (FoundRow *list = rowOpenedBy(each, action, rows)) {
            if (!keys.isEmpty()) list->note = keys;
            continue;
        }
        rows.append({.kind = FoundRow::Kind::Command,
                     .id = u"command:"_s + QLatin1StringView{each.name},
                     .title = each.menu == MenuTitle::Task ? KWLocalizedString("Task: %1").arg(action.text())
                                                           : action.text(),
                     .note = action.isEnabled() ? keys : action.toolTip(),
                     .icon = Icon::ChevronRight,
                     .isEnabled = action.isEnabled(),
                     .command = each.command});
    }
}

} // namespace

QList<FoundRow> paletteNames(KWProjectListPresenter &sidebar, MainMenu &menu)
{
    QList<FoundRow> rows;
    const auto &contents = sidebar.contents();
    const QString inboxID =
        contents && !contents->projects.isEmpty() ? contents->projects.first().sid : QString{};
    addNodes(sidebar.listsRootNode(), inboxID, rows);
    addHiddenSmartLists(rows);
    menu.refresh();
    addCommands(menu, rows);
    return rows;
}
