#pragma once

#include "corvexkit/time/CXClock.h"
#include "model/settings/DataFolders.h"

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>

class KWCoreDataManager;
class KWNotificationCenter;

/// Hears that another process has written the store: the main context reads again, then
/// KWDataDidChangeOutsideMainAppNotification is posted. Changes that come close together are taken at
/// once. Main thread.
class OutsideChangeWatcher : public QObject {
public:
    /// Changes within this time are one.
    static constexpr std::chrono::milliseconds gathering{100};

    OutsideChangeWatcher(DataFolders folders, KWCoreDataManager &manager, KWNotificationCenter &center,
                         CXClock &clock);

    /// Call before the first record is read: what was written until now counts as read. Without a file system
    /// that tells of changes, a line goes into the log and nothing is heard.
    void start();

private:
    void watchFile();
    void fileDidChange();
    void takeChange();

    DataFolders m_folders;
    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    CXClock &m_clock;
    QFileSystemWatcher m_watcher;
    QByteArray m_lastChange;
    ClockCall m_gathering;
};
