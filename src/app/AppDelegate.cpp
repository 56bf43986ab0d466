#include "app/AppDelegate.h"

AppDelegate::AppDelegate(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus,
                         KWUserDefaults &defaults, CrashProtectionAlert &alert, AppPorts ports)
    : m_links(ports.links)
    , m_guard(defaults, clock, alert)
    , m_session(clock, center, bus, ports)
    , m_startup(ports, m_session)
{
}

void AppDelegate::applicationDidFinishLaunching(const LaunchRequest &request)
{
    m_guard.applicationDidFinishLaunching([this, request] { launch(request); });
}

void AppDelegate::launch(const LaunchRequest &request)
{
    m_startup.handleFinishLaunching(request);
    m_isLaunched = true;
    openLinks(request.links);
    for (const LaunchRequest &each : std::exchange(m_waiting, {}))
        open(each);
}

void AppDelegate::open(const LaunchRequest &request)
{
    if (!m_isLaunched) return m_waiting.push_back(request);
    // With the session of the desktop nobody asked for a window.
    if (request.cause == LaunchCause::LoginItem) return;
    m_session.showWindow(request.activationToken);
    openLinks(request.links);
}

void AppDelegate::openLinks(const QStringList &links)
{
    for (const QString &link : links)
        m_links.open(link);
}
