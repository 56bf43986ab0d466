#pragma once

#include "app/ports/DiagnosticsPorts.h"

#include <QDBusConnection>

/// The file manager of the desktop, by org.freedesktop.FileManager1 on the session bus; where none answers,
/// the folder is opened by xdg-open(1). Waits some seconds at most for a file manager that has to start.
class DesktopFileManager final : public FileManagerPort {
public:
    explicit DesktopFileManager(QDBusConnection bus = QDBusConnection::sessionBus()) : m_bus(std::move(bus))
    {
    }

    bool showItem(const QString &file) override;

private:
    QDBusConnection m_bus;
};
