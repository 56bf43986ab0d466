#include "app/ShortcutConfiguration.h"

#include "app/MenuTable.h"
#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString slotOf(MenuCommand command) { return QString::number(int(command)); }

QString defaultKeysOf(const MenuEntry &entry) { return QLatin1StringView{entry.keys}; }

} // namespace

ShortcutConfiguration::ShortcutConfiguration(KWUserDefaults &defaults) : m_defaults(defaults) { reload(); }

void ShortcutConfiguration::reload()
{
    m_keys.clear();
    for (const MenuEntry &each : menuEntries())
        if (!each.hasSlot()) assign(each.command, defaultKeysOf(each));
    // Chosen keys come before defaults, so that a later default never takes them away.
    for (const bool takesChosen : {true, false})
        for (const MenuEntry &each : menuEntries()) {
            const bool isChosen = m_defaults.contains(Settings::keyboardShortcut, slotOf(each.command));
            if (!each.hasSlot() || isChosen != takesChosen) continue;
            const QString keys = isChosen ? m_defaults.value(Settings::keyboardShortcut, slotOf(each.command))
                                          : defaultKeysOf(each);
            assign(each.command, isForTyping(keys) || commandWith(keys) ? QString{} : keys);
        }
}

QString ShortcutConfiguration::keysOf(MenuCommand command) const
{
    const auto found = m_keys.find(command);
    return found == m_keys.end() ? QString{} : found->second;
}

std::optional<MenuCommand> ShortcutConfiguration::commandWith(const QString &keys) const
{
    if (keys.isEmpty()) return std::nullopt;
    const auto found = std::ranges::find_if(m_keys, [&](const auto &each) { return each.second == keys; });
    return found == m_keys.end() ? std::nullopt : std::optional{found->first};
}

bool ShortcutConfiguration::isForTyping(const QString &keys)
{
    if (keys.isEmpty()) return false;
    // Letters, signs and keys of the caret, alone, with Shift, or with the Ctrl of word by word.
    static const QRegularExpression commands{
        uR"(^(Ctrl\+|Alt\+|Shift\+|Meta\+)*(Ctrl|Alt|Meta)\+(Shift\+)*[^+]+$|^(Shift\+)?F\d+$|\+\+$)"_s};
    static const QRegularExpression caret{
        u"^Ctrl\\+(Shift\\+)?(Left|Right|Up|Down|Home|End|PgUp|PgDown|Backspace|Del|Ins|Tab|Backtab)$"_s};
    return !commands.match(keys).hasMatch() || caret.match(keys).hasMatch();
}

Result<void> ShortcutConfiguration::setKeys(MenuCommand command, const QString &keys)
{
    if (isForTyping(keys))
        return Error{KWLocalizedString("“%1” is needed for typing. Add Ctrl or Alt.").arg(keys)};
    const auto owner = commandWith(keys);
    if (owner && *owner != command)
        return Error{KWLocalizedString("“%1” belongs to “%2”.").arg(keys, menuEntryOf(*owner).plainTitle())};
    assign(command, keys);
    if (keys == defaultKeysOf(menuEntryOf(command)))
        m_defaults.remove(Settings::keyboardShortcut, slotOf(command));
    else
        m_defaults.set(Settings::keyboardShortcut, keys, slotOf(command));
    return m_defaults.save();
}

void ShortcutConfiguration::reset()
{
    for (const MenuEntry &each : menuEntries())
        if (each.hasSlot()) m_defaults.remove(Settings::keyboardShortcut, slotOf(each.command));
    reload();
}

bool ShortcutConfiguration::isReset() const
{
    return std::ranges::all_of(menuEntries(), [this](const MenuEntry &each) {
        return !each.hasSlot() || keysOf(each.command) == defaultKeysOf(each);
    });
}
