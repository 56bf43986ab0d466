#include "views/preferences/ShortcutsPage.h"

#include "model/settings/KWLocalizedString.h"
#include "views/menu/MainMenu.h"
#include "views/theme/Metrics.h"

#include <QKeyEvent>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int shortcutWidth = 170;

} // namespace

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
    connect(m_reset, &QPushButton::clicked, this, [this] {
        m_menu.shortcuts().reset();
        m_menu.applyShortcuts();
        showStored();
    });
    endRows();
    showStored();
}

void ShortcutsPage::addShortcut(const MenuEntry &entry)
{
    auto *edit = new QKeySequenceEdit;
    edit->setFixedSize(Metrics::scaled(shortcutWidth), Metrics::scaled(Metrics::control));
    // The field inside takes the keys; its Tab goes on to the next row.
    for (QObject *each : edit->children())
        if (auto *field = qobject_cast<QLineEdit *>(each)) {
            field->setMinimumHeight(Metrics::scaled(Metrics::control));
            field->setTextMargins(Metrics::grid * 2, 0, Metrics::grid * 2, 0);
            field->installEventFilter(this);
        }
    edit->installEventFilter(this);
    m_edits[entry.command] = edit;
    connect(edit, &QKeySequenceEdit::keySequenceChanged, this,
            [this, command = entry.command](const QKeySequence &keys) { take(command, keys); });
    addRow(entry.name, entry.plainTitle(), *edit);
}

void ShortcutsPage::take(MenuCommand command, const QKeySequence &keys)
{
    // One stroke, not a row of them.
    const QString stroke =
        keys.isEmpty() ? QString{} : QKeySequence{keys[0]}.toString(QKeySequence::PortableText);
    const Result<void> set = m_menu.shortcuts().setKeys(command, stroke);
    if (set) m_menu.applyShortcuts();
    report(set, [] {});
    showStored();
}

void ShortcutsPage::showStored()
{
    for (const auto &[command, edit] : m_edits) {
        const QSignalBlocker quiet{edit};
        edit->setKeySequence(QKeySequence{m_menu.shortcuts().keysOf(command), QKeySequence::PortableText});
    }
    m_reset->setEnabled(!m_menu.shortcuts().isReset());
}

bool ShortcutsPage::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) return PreferencesPage::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    auto *edit = qobject_cast<QKeySequenceEdit *>(watched);
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
        return focusNextPrevChild(key->key() == Qt::Key_Tab);
    // Alone, these two take the keys away.
    const bool clears = key->key() == Qt::Key_Backspace || key->key() == Qt::Key_Delete;
    if (edit && clears && key->modifiers() == Qt::NoModifier) {
        edit->clear();
        return true;
    }
    if (key->key() == Qt::Key_Escape) {
        window()->close();
        return true;
    }
    return PreferencesPage::eventFilter(watched, event);
}
