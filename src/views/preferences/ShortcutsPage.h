#pragma once

#include "app/MenuTable.h"
#include "views/preferences/PreferencesPage.h"

#include <map>

class MainMenu;
class QKeySequenceEdit;
class QPushButton;

/// The keys of the commands that have a slot. Keys that another command has, or that are needed for typing,
/// are refused with a sentence.
class ShortcutsPage : public PreferencesPage {
    Q_OBJECT

public:
    ShortcutsPage(Preferences &preferences, MainMenu &menu);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addShortcut(const MenuEntry &entry);
    void take(MenuCommand command, const QKeySequence &keys);
    void showStored();

    MainMenu &m_menu;
    std::map<MenuCommand, QKeySequenceEdit *> m_edits;
    QPushButton *m_reset;
};
