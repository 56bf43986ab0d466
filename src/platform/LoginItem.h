#pragma once

#include "app/ports/LoginItemPort.h"
#include "model/settings/DataFolders.h"

#include <QStringList>

/// Starts the program with the desktop's session by an entry in the autostart folder (freedesktop.org,
/// Desktop Application Autostart 0.5, Desktop Entry 1.5). What the entry says is what counts, also when
/// the desktop's own settings have switched it off.
class LoginItem final : public LoginItemPort {
public:
    /// For the program on that data folder.
    explicit LoginItem(const DataFolders &folders);
    LoginItem(QString entry, QStringList command) : m_entry(std::move(entry)), m_command(std::move(command))
    {
    }

    bool isAvailable() const override { return true; }
    LoginStart start() const override;
    Result<void> setStart(LoginStart start) override;

    /// A command line as the key Exec has it.
    static QString execLine(const QStringList &command);

private:
    QString m_entry;
    QStringList m_command;
};
