#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

/// Ends the program as it should when the session or a shell asks it to: SIGTERM, SIGINT and SIGHUP call
/// `quit` from the event loop, so that windows hand over what was typed. One at a time; main thread.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> quit);
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;
    ~TerminationSignals();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
