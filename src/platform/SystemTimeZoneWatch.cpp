#include "platform/SystemTimeZoneWatch.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "platform/TimeDateProperties.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger zoneWatchLog{u"zone"};
}

SystemTimeZoneWatch::SystemTimeZoneWatch(KWNotificationCenter &center, CXClock &clock, Refresh refresh,
                                         BusConnector connector, QString zoneFile)
    : m_center(center)
    , m_clock(clock)
    , m_refresh(std::move(refresh))
    , m_connector(std::move(connector))
    , m_zoneFile(std::move(zoneFile))
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &SystemTimeZoneWatch::check);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &SystemTimeZoneWatch::check);
}

SystemTimeZoneWatch::~SystemTimeZoneWatch() = default;

void SystemTimeZoneWatch::start()
{
    watchFile();
    m_connecting = m_clock.callAfter(connectAfter, [this] { connectToService(); });
}

void SystemTimeZoneWatch::watchFile()
{
    // A link is replaced, which only its folder tells; a file may be written in place.
    m_watcher.addPath(QFileInfo{m_zoneFile}.path());
    if (QFile::exists(m_zoneFile)) m_watcher.addPath(m_zoneFile);
}

void SystemTimeZoneWatch::connectToService()
{
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected())
        return zoneWatchLog.info(u"No system bus: the zone is known by its file alone."_s);

    m_service = std::make_unique<TimeDateProperties>(bus);
    connect(m_service.get(), &TimeDateProperties::PropertiesChanged, this, &SystemTimeZoneWatch::check);
    // It may have changed while nobody listened.
    check();
}

void SystemTimeZoneWatch::check()
{
    watchFile(); // a file that was replaced is watched no longer
    if (m_refresh()) m_center.post(SystemTimeZoneDidChangeNotification);
}
