#include "platform/TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace {

constexpr int handledSignals[] = {SIGTERM, SIGINT, SIGHUP};
int signalPipe[2] = {-1, -1};

// A handler may do little more than write (POSIX, Signal Concepts).
void noteSignal(int number)
{
    const char byte = char(number);
    [[maybe_unused]] const auto written = write(signalPipe[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> quit)
{
    if (pipe(signalPipe) != 0) return; // the signals then end the program at once, as by default
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [quit = std::move(quit)] {
                         char byte = 0;
                         if (read(signalPipe[0], &byte, 1) == 1) quit();
                     });
    for (const int each : handledSignals)
        std::signal(each, noteSignal);
}

TerminationSignals::~TerminationSignals()
{
    if (!m_notifier) return;
    for (const int each : handledSignals)
        std::signal(each, SIG_DFL);
    m_notifier.reset();
    for (int &end : signalPipe)
        close(std::exchange(end, -1));
}
