#include "app/RunningApplication.h"

RunningApplication::RunningApplication(CXClock &clock, KWNotificationCenter &center, KWEventBus &bus,
                                       AppPorts ports)
    : m_links(ports.links)
    , m_mainMenu(ports.mainMenu)
    , m_quickAddWindow(ports.quickAddWindow)
    , m_session(clock, center, bus, ports)
    , m_startup(ports, m_session)
{
}

void RunningApplication::handleFinishLaunching(const LaunchRequest &launch)
{
    m_startup.handleFinishLaunching(launch);
    carryOut(launch);
}

void RunningApplication::open(const LaunchRequest &request)
{
    // With the session of the desktop nobody asked for a window.
    if (request.cause == LaunchCause::LoginItem) return;
    if (request.cause != LaunchCause::AddTask || !m_session.isSignedIn())
        m_session.showWindow(request.activationToken);
    carryOut(request);
}

void RunningApplication::carryOut(const LaunchRequest &request)
{
    for (const QString &link : request.links)
        m_links.open(link);
    if (request.cause == LaunchCause::Diagnostics) m_mainMenu.trigger(MenuCommand::SendDiagnostics);
    if (request.cause == LaunchCause::AddTask) m_quickAddWindow.show(request.title, request.activationToken);
}
