#include "views/menu/MainMenu.h"

#include "app/ApplicationName.h"
#include "model/settings/KWLocalizedString.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

MainMenu::MainMenu(KWUserDefaults &defaults) : m_shortcuts(defaults)
{
    for (const MenuEntry &each : menuEntries()) {
        auto *action = new QAction{textWithApplicationName(each.title), this};
        action->setObjectName(QLatin1StringView{each.name});
        // None is moved to another menu because of what it is called.
        action->setMenuRole(QAction::NoRole);
        const MenuCommand command = each.command;
        m_items[command].action = action;
        connect(action, &QAction::triggered, this, [this, command] {
            if (const auto handler = m_items.at(command).handler) handler();
        });
    }
    refresh();
}

MainMenu::~MainMenu() = default;

void MainMenu::updateTaskMenuItemsWithEnabled(bool enabled)
{
    m_hasSelectedTask = enabled;
    for (const MenuEntry &each : menuEntries())
        if (each.needs == MenuNeeds::SelectedTask) updateItem(each);
}

void MainMenu::setApplicationTitles(const ApplicationMenuTitles &titles)
{
    action(MenuCommand::About).setText(titles.about);
    action(MenuCommand::Hide).setText(titles.hide);
    action(MenuCommand::Quit).setText(titles.quit);
}

void MainMenu::refresh()
{
    for (const MenuEntry &each : menuEntries())
        updateItem(each);
}

void MainMenu::updateItem(const MenuEntry &entry)
{
    const Item &item = m_items.at(entry.command);
    QString reason;
    if (!item.handler)
        reason = KWLocalizedString("There is nothing here for this command.");
    else if (entry.needs == MenuNeeds::SelectedTask && !m_hasSelectedTask)
        reason = KWLocalizedString("Select a task first.");
    else if (item.hindrance)
        reason = item.hindrance();
    item.action->setEnabled(reason.isEmpty());
    item.action->setToolTip(reason);
    item.action->setStatusTip(reason);
}

void MainMenu::trigger(MenuCommand command)
{
    QMetaObject::invokeMethod(&action(command), &QAction::trigger, Qt::QueuedConnection);
}

void MainMenu::setUp()
{
    m_shortcuts.reload();
    for (const MenuEntry &each : menuEntries())
        if (!each.hasSlot()) bindMenuItem(each.command, int(each.command));
}

void MainMenu::bindMenuItem(MenuCommand command, int slot)
{
    const QString keys = m_shortcuts.keysOf(MenuCommand(slot));
    action(command).setShortcut(QKeySequence{keys, QKeySequence::PortableText});
}

void MainMenu::refreshConfiguration()
{
    m_shortcuts.reload();
    applyShortcuts();
    refresh();
}

void MainMenu::applyShortcuts()
{
    for (const MenuEntry &each : menuEntries())
        bindMenuItem(each.command, int(each.command));
}

void MainMenu::handle(MenuCommand command, QObject &owner, std::function<void()> handler)
{
    Item &item = m_items.at(command);
    item = {.action = item.action, .owner = &owner, .handler = std::move(handler)};
    updateItem(menuEntryOf(command));
    connect(&owner, &QObject::destroyed, this, [this, command](const QObject *gone) {
        Item &left = m_items.at(command);
        if (left.owner != gone) return; // somebody else handles it by now
        left = {.action = left.action};
        updateItem(menuEntryOf(command));
    });
}

void MainMenu::setHindrance(MenuCommand command, std::function<QString()> hindrance)
{
    m_items.at(command).hindrance = std::move(hindrance);
    updateItem(menuEntryOf(command));
}

void MainMenu::attachTo(QWidget &window)
{
    for (const auto &[command, item] : m_items)
        window.addAction(item.action);
}

void MainMenu::fill(QMenuBar &bar)
{
    for (const MenuTitle each : {MenuTitle::Application, MenuTitle::File, MenuTitle::Edit, MenuTitle::Task,
                                 MenuTitle::Go, MenuTitle::Window, MenuTitle::Help})
        bar.addMenu(makeMenu(each, bar));
}

QMenu *MainMenu::makePopup(QWidget &parent)
{
    auto *popup = new QMenu{&parent};
    popup->setObjectName(u"mainMenu"_s);
    popup->setToolTipsVisible(true);
    for (const MenuTitle each : {MenuTitle::File, MenuTitle::Edit, MenuTitle::Task, MenuTitle::Go,
                                 MenuTitle::Window, MenuTitle::Help})
        popup->addMenu(makeMenu(each, *popup));
    popup->addSeparator();
    addEntries(MenuTitle::Application, *popup);
    return popup;
}

QMenu *MainMenu::makeMenu(MenuTitle title, QWidget &parent)
{
    auto *menu = new QMenu{menuTitleText(title), &parent};
    menu->setToolTipsVisible(true);
    addEntries(title, *menu);
    return menu;
}

void MainMenu::addEntries(MenuTitle title, QMenu &menu)
{
    for (const MenuEntry &each : menuEntries()) {
        if (each.menu != title) continue;
        if (each.beginsGroup) menu.addSeparator();
        menu.addAction(&action(each.command));
    }
    connect(&menu, &QMenu::aboutToShow, this, &MainMenu::refresh);
}
