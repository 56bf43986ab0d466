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
        if (!each.hasSlot()) m_keys[each.command] = defaultKeysOf(each);
    const Keys own = chosen();
    // Chosen keys come before defaults, so that a later default never takes them away.
    for (const bool takesChosen : {true, false})
        for (const MenuEntry &each : menuEntries()) {
            const auto found = own.find(each.command);
            const bool isChosen = found != own.end();
            if (!each.hasSlot() || isChosen != takesChosen) continue;
            const QString keys = isChosen ? found->second : defaultKeysOf(each);
            m_keys[each.command] = isForTyping(keys) || commandWith(keys) ? QString{} : keys;
        }
}

ShortcutConfiguration::Keys ShortcutConfiguration::chosen() const
{
    Keys keys;
    for (const MenuEntry &each : menuEntries())
        if (m_defaults.contains(Settings::keyboardShortcut, slotOf(each.command)))
            keys[each.command] = m_defaults.value(Settings::keyboardShortcut, slotOf(each.command));
    return keys;
}

void ShortcutConfiguration::write(const Keys &chosen)
{
    for (const MenuEntry &each : menuEntries()) {
        if (!each.hasSlot()) continue;
        if (const auto found = chosen.find(each.command); found != chosen.end())
            m_defaults.set(Settings::keyboardShortcut, found->second, slotOf(each.command));
        else
            m_defaults.remove(Settings::keyboardShortcut, slotOf(each.command));
    }
}

Result<void> ShortcutConfiguration::keep(const Keys &wanted)
{
    const Keys before = chosen();
    write(wanted);
    const Result<void> saved = m_defaults.save();
    if (!saved) write(before);
    reload();
    return saved;
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
    Keys wanted = chosen();
    wanted[command] = keys;
    if (keys == defaultKeysOf(menuEntryOf(command))) wanted.erase(command);
    return keep(wanted);
}

bool ShortcutConfiguration::isReset() const
{
    return std::ranges::all_of(menuEntries(), [this](const MenuEntry &each) {
        return !each.hasSlot() || keysOf(each.command) == defaultKeysOf(each);
    });
}
