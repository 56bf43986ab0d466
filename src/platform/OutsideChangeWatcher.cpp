#include "platform/OutsideChangeWatcher.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/OutsideChange.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger outsideChangeLog{u"store"};
}

OutsideChangeWatcher::OutsideChangeWatcher(DataFolders folders, KWCoreDataManager &manager,
                                           KWNotificationCenter &center, CXClock &clock)
    : m_folders(std::move(folders)), m_manager(manager), m_center(center), m_clock(clock)
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &OutsideChangeWatcher::fileDidChange);
}

void OutsideChangeWatcher::start()
{
    watchFile();
    m_lastChange = lastOutsideChange(m_folders);
}

void OutsideChangeWatcher::watchFile()
{
    // A file that is not there cannot be watched; one that was removed is watched no longer.
    QFile file{m_folders.outsideChange()};
    if (m_watcher.files().contains(file.fileName()) && file.exists()) return;
    m_watcher.removePath(file.fileName());
    if (!file.open(QIODevice::Append) || !m_watcher.addPath(file.fileName()))
        outsideChangeLog.warning(
            u"Changes from outside are not heard: “%1” cannot be watched."_s.arg(file.fileName()));
}

void OutsideChangeWatcher::fileDidChange()
{
    watchFile();
    if (!m_gathering.isPending()) m_gathering = m_clock.callAfter(gathering, [this] { takeChange(); });
}

void OutsideChangeWatcher::takeChange()
{
    const QByteArray change = lastOutsideChange(m_folders);
    // Half a stamp is followed by another signal.
    if (change.isEmpty() || change == m_lastChange) return;
    m_lastChange = change;
    m_manager.refreshAll();
    m_center.post(KWDataDidChangeOutsideMainAppNotification);
}
