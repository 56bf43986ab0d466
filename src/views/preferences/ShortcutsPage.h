#pragma once

#include "app/MenuTable.h"
#include "views/preferences/PreferencesPage.h"

#include <map>

class MainMenu;
class QPushButton;
class ShortcutField;

/// The keys of the commands that have a slot. Keys that another command has, or that are needed for typing,
/// are refused with a sentence, and the old ones stay.
class ShortcutsPage : public PreferencesPage {
    Q_OBJECT

public:
    ShortcutsPage(Preferences &preferences, MainMenu &menu);

private:
    void addShortcut(const MenuEntry &entry);
    void take(const Result<void> &set);
    void showStored();

    MainMenu &m_menu;
    std::map<MenuCommand, ShortcutField *> m_fields;
    QPushButton *m_reset;
};
