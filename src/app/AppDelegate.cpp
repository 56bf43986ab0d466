#include "app/AppDelegate.h"

#include "app/RunningApplication.h"

AppDelegate::AppDelegate(CXClock &clock, KWUserDefaults &defaults, CrashProtectionAlert &alert,
                         BringUp bringUp)
    : m_bootingProtection(defaults, clock, alert), m_bringUp(std::move(bringUp))
{
}

void AppDelegate::applicationDidFinishLaunching(const LaunchRequest &request)
{
    m_bootingProtection.applicationDidFinishLaunching([this, request] { launch(request); });
}

void AppDelegate::launch(const LaunchRequest &request)
{
    RunningApplication *application = m_bringUp();
    if (!application) return;
    application->handleFinishLaunching(request);
    m_running = application;
    for (const LaunchRequest &each : std::exchange(m_waiting, {}))
        application->open(each);
}

void AppDelegate::open(const LaunchRequest &request)
{
    if (m_running)
        m_running->open(request);
    else
        m_waiting.push_back(request);
}
