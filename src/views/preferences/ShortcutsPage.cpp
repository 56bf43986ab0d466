#include "views/preferences/ShortcutsPage.h"

#include "model/settings/KWLocalizedString.h"
#include "views/menu/MainMenu.h"
#include "views/preferences/ShortcutField.h"

#include <QPushButton>

ShortcutsPage::ShortcutsPage(Preferences &preferences, MainMenu &menu)
    : PreferencesPage("shortcutsPage", KWLocalizedString("Keyboard Shortcuts"), preferences)
    , m_menu(menu)
    , m_reset(new QPushButton{KWLocalizedString("Reset All")})
{
    std::optional<MenuTitle> heading;
    for (const MenuEntry &each : menuEntries()) {
        if (!each.hasSlot()) continue;
        if (heading != each.menu) addHeading(menuTitleText(each.menu).remove(u'&'));
        heading = each.menu;
        addShortcut(each);
    }
    addRow("resetShortcuts", KWLocalizedString("All keys as they were at first"), *m_reset);
    connect(m_reset, &QPushButton::clicked, this, [this] { take(m_menu.shortcuts().reset()); });
    endRows();
    showStored();
}

void ShortcutsPage::addShortcut(const MenuEntry &entry)
{
    auto *field = new ShortcutField{entry.plainTitle(), QLatin1StringView{entry.keys}};
    m_fields[entry.command] = field;
    connect(field, &ShortcutField::chosen, this, [this, command = entry.command](const QString &keys) {
        take(m_menu.shortcuts().setKeys(command, keys));
    });
    addRow(entry.name, entry.plainTitle(), *field);
}

void ShortcutsPage::take(const Result<void> &set)
{
    m_menu.applyShortcuts();
    report(set, [] {});
    showStored();
}

void ShortcutsPage::showStored()
{
    for (const auto &[command, field] : m_fields)
        field->setKeys(m_menu.shortcuts().keysOf(command));
    m_reset->setEnabled(!m_menu.shortcuts().isReset());
}
