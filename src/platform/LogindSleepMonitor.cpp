#include "platform/LogindSleepMonitor.h"

#include "corvexkit/log/CXLog.h"
#include "model/events/KWNotificationCenter.h"
#include "model/events/NotificationNames.h"
#include "platform/LogindManager.h"

using namespace Qt::StringLiterals;

namespace {
constexpr CXLogger sleepLog{u"sleep"};
}

LogindSleepMonitor::LogindSleepMonitor(KWNotificationCenter &center, CXClock &clock, BusConnector connector)
    : m_center(center), m_clock(clock), m_connector(std::move(connector))
{
}

LogindSleepMonitor::~LogindSleepMonitor() = default;

void LogindSleepMonitor::start()
{
    m_connecting = m_clock.callAfter(connectAfter, [this] { connectToManager(); });
}

void LogindSleepMonitor::connectToManager()
{
    const QDBusConnection bus = m_connector();
    if (!bus.isConnected()) return sleepLog.info(u"No system bus: sleep and wake are not heard."_s);

    m_manager = std::make_unique<LogindManager>(bus);
    if (!m_manager->isValid()) sleepLog.info(u"No login manager yet: sleep and wake are not heard."_s);
    connect(m_manager.get(), &LogindManager::PrepareForSleep, this, &LogindSleepMonitor::prepareForSleep);
}

void LogindSleepMonitor::prepareForSleep(bool isAboutToSleep)
{
    m_center.post(isAboutToSleep ? WorkspaceWillSleepNotification : WorkspaceDidWakeNotification);
}
