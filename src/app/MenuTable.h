#pragma once

#include "app/MenuCommand.h"

#include <QString>

#include <span>

/// The menus of the menu bar, in their order.
enum class MenuTitle { Application, File, Edit, Task, Go, Window, Help };

/// What an item needs to be of use.
enum class MenuNeeds { Nothing, SignedInUser, SelectedTask };

/// An item of the main menu.
struct MenuEntry {
    MenuCommand command;
    MenuTitle menu;
    const char *name;  ///< in the code and for tests: "completeTask"
    const char *title; ///< localisation key; a "%@" stands for the program's name
    const char *keys;  ///< its keys as long as nobody chose others, as portable text; may be empty
    MenuNeeds needs = MenuNeeds::SignedInUser;
    bool beginsGroup = false;

    /// Whether it has a slot, so that its keys can be changed.
    bool hasSlot() const { return command <= MenuCommand::OpenHabit; }
    /// The title without the dots that announce a window.
    QString plainTitle() const;
};

/// Every item, menu by menu, in the order in which they stand.
std::span<const MenuEntry> menuEntries();
const MenuEntry &menuEntryOf(MenuCommand command);

/// The title of a menu in the menu bar; its "&" is the key that opens it.
QString menuTitleText(MenuTitle menu);
