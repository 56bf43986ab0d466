#pragma once

#include "app/MenuTable.h"
#include "app/ShortcutConfiguration.h"
#include "app/ports/WindowPorts.h"

#include <QObject>

#include <functional>
#include <map>

class QAction;
class QMenu;
class QMenuBar;

/// The main menu: an action for every entry of the menu table, shown as the menus of a bar and as one
/// menu behind a button. The actions live as long as the program, their windows come and go. An action
/// that nobody handles at the moment is disabled and says why. Main thread.
class MainMenu : public QObject, public MainMenuPort, public KeyboardShortcutsPort {
    Q_OBJECT

public:
    explicit MainMenu(KWUserDefaults &defaults);
    ~MainMenu() override;

    // MainMenuPort
    void updateTaskMenuItemsWithEnabled(bool enabled) override;
    void setApplicationTitles(const ApplicationMenuTitles &titles) override;
    void trigger(MenuCommand command) override;
    void refresh() override;

    // KeyboardShortcutsPort
    void setUp() override;
    void bindMenuItem(MenuCommand command, int slot) override;
    void refreshConfiguration() override;

    ShortcutConfiguration &shortcuts() { return m_shortcuts; }
    /// The shortcuts are other ones now: the actions take them.
    void applyShortcuts();

    QAction &action(MenuCommand command) { return *m_items.at(command).action; }

    /// What the command does from now on, as long as `owner` lives.
    void handle(MenuCommand command, QObject &owner, std::function<void()> handler);
    /// Asked at refresh() whether the command can be given; a sentence says why not, an empty one that it
    /// can.
    void setHindrance(MenuCommand command, std::function<QString()> hindrance);

    /// Makes the keys of the actions work in that window.
    void attachTo(QWidget &window);
    /// Puts the menus into the bar.
    void fill(QMenuBar &bar);
    /// The menu behind the button; owned by `parent`.
    QMenu *makePopup(QWidget &parent);

private:
    struct Item {
        QAction *action = nullptr;
        QObject *owner = nullptr;
        std::function<void()> handler = {};
        std::function<QString()> hindrance = {};
    };

    QMenu *makeMenu(MenuTitle title, QWidget &parent);
    void addEntries(MenuTitle title, QMenu &menu);
    void updateItem(const MenuEntry &entry);

    ShortcutConfiguration m_shortcuts;
    std::map<MenuCommand, Item> m_items;
    bool m_hasSelectedTask = false;
};
