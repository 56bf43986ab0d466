#include "views/palette/PaletteNames.h"

#include "app/MenuTable.h"
#include "lists/KWProjectListPresenter.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWLocalizedString.h"
#include "views/menu/MainMenu.h"

#include <QAction>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

FoundRow listRow(const KWListIdentifier &list, const QString &title)
{
    return {.kind = FoundRow::Kind::List,
            .id = u"list:"_s + list.userDefaultEncode(),
            .title = title,
            .list = list};
}

void describe(const KWProjectListNode &node, FoundRow &row)
{
    row.color = node.color();
    switch (node.type()) {
    case KWProjectListNodeType::group:
        row.note = KWLocalizedString("Folder");
        row.icon = Icon::Folder;
        break;
    case KWProjectListNodeType::tag:
        row.note = KWLocalizedString("Tag");
        row.icon = Icon::Tag;
        break;
    case KWProjectListNodeType::filter:
        row.note = KWLocalizedString("Filter");
        row.icon = Icon::Filter;
        break;
    case KWProjectListNodeType::smartProject:
        row.icon = Icon::All;
        [[fallthrough]];
    default:
        row.note = KWLocalizedString("List");
    }
}

void addNodes(const KWProjectListNode &node, QList<FoundRow> &rows)
{
    for (const auto &each : node.children()) {
        if (const auto list = each->listIdentifier()) {
            rows.append(listRow(*list, each->title()));
            describe(*each, rows.last());
        }
        addNodes(*each, rows);
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
        rows.last().icon = Icon::All;
    }
}

void addCommands(MainMenu &menu, QList<FoundRow> &rows)
{
    for (const MenuEntry &each : menuEntries()) {
        if (each.command == MenuCommand::OpenPalette) continue;
        const QAction &action = menu.action(each.command);
        rows.append({.kind = FoundRow::Kind::Command,
                     .id = u"command:"_s + QLatin1StringView{each.name},
                     .title = each.menu == MenuTitle::Task ? KWLocalizedString("Task: %1").arg(action.text())
                                                           : action.text(),
                     .note = action.isEnabled() ? action.shortcut().toString(QKeySequence::NativeText)
                                                : action.toolTip(),
                     .icon = Icon::ChevronRight,
                     .isEnabled = action.isEnabled(),
                     .command = each.command});
    }
}

} // namespace

QList<FoundRow> paletteNames(KWProjectListPresenter &sidebar, MainMenu &menu)
{
    QList<FoundRow> rows;
    addNodes(sidebar.listsRootNode(), rows);
    addHiddenSmartLists(rows);
    menu.refresh();
    addCommands(menu, rows);
    return rows;
}
