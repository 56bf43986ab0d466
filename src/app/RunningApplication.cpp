#include "app/RunningApplication.h"

RunningApplication::RunningApplication(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus,
                                       AppPorts ports)
    : m_links(ports.links), m_session(clock, center, bus, ports), m_startup(ports, m_session)
{
}

void RunningApplication::handleFinishLaunching(const LaunchRequest &launch)
{
    m_startup.handleFinishLaunching(launch);
    openLinks(launch.links);
}

void RunningApplication::open(const LaunchRequest &request)
{
    // With the session of the desktop nobody asked for a window.
    if (request.cause == LaunchCause::LoginItem) return;
    m_session.showWindow(request.activationToken);
    openLinks(request.links);
}

void RunningApplication::openLinks(const QStringList &links)
{
    for (const QString &link : links)
        m_links.open(link);
}
