#pragma once

#include "app/MenuCommand.h"
#include "corvexkit/Result.h"

#include <QString>

#include <map>
#include <optional>

class KWUserDefaults;

/// The keys of the main menu's commands, as portable text ("Ctrl+Shift+D"): the defaults of the menu
/// table, and in their place what the person has chosen, kept in the standard defaults by slot. No two
/// commands have the same keys. Main thread.
class ShortcutConfiguration {
public:
    explicit ShortcutConfiguration(KWUserDefaults &defaults);

    /// Takes what is stored. Stored keys that are refused, or that an earlier slot has, count as none.
    void reload();

    /// Empty when the command has none.
    QString keysOf(MenuCommand command) const;
    /// The command that has those keys.
    std::optional<MenuCommand> commandWith(const QString &keys) const;

    /// Gives a command with a slot these keys, or none for an empty text. Refused, with a sentence that
    /// says why: keys that type or edit text, and keys that another command has. When they cannot be saved,
    /// here and in reset(), everything stays as it was.
    Result<void> setKeys(MenuCommand command, const QString &keys);
    /// Every slot has the keys of the menu table again.
    Result<void> reset() { return keep({}); }
    bool isReset() const;

    /// Whether the keys would take letters or editing away from text fields.
    static bool isForTyping(const QString &keys);

private:
    using Keys = std::map<MenuCommand, QString>;

    Keys chosen() const;
    void write(const Keys &chosen);
    Result<void> keep(const Keys &wanted);

    KWUserDefaults &m_defaults;
    Keys m_keys;
};
