#include "model/settings/DataFolders.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

DataFolders DataFolders::locate(const QString &home)
{
    const QString chosen = home.isEmpty() ? qEnvironmentVariable("ORVANE_HOME") : home;
    if (!chosen.isEmpty()) {
        const QString folder = QDir::cleanPath(QDir::current().absoluteFilePath(chosen));
        return {folder, folder + u"/config"_s};
    }
    return standard();
}

DataFolders DataFolders::standard()
{
    return {QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/orvane"_s,
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/orvane"_s};
}
