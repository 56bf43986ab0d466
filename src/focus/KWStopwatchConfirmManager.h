#pragma once

#include <QString>

#include <chrono>
#include <functional>

class KWNotificationCenter;

/// What the window of the confirmation shows and whom it tells. Lengths are seconds.
struct StopwatchConfirmation {
    double originalDuration = 0;
    bool isAutoStoped = false; ///< the timing had reached the upper limit
    std::function<void(double)> valueChangedHandler{};
    std::function<void()> confirmActionHandler{};
    std::function<void()> postponedHandler{}; ///< the window was closed without an answer
};

/// The window in which a length is confirmed. Implemented by the views.
class StopwatchConfirmPort {
public:
    virtual ~StopwatchConfirmPort() = default;

    /// Makes it key and orders it front, beside the key window if there is one; activates the application.
    virtual void show(const StopwatchConfirmation &confirmation) = 0;
    /// Closes it; tells nobody.
    virtual void close() = 0;
};

/// Has a person confirm the length of a long timing, or shorten it. Main thread.
class KWStopwatchConfirmManager {
public:
    /// Posted after a length was confirmed.
    static inline const QString didConfirm = QStringLiteral("KWStopwatchConfirmManager.didConfirm");

    /// They outlive it. A timing of `automaticStopLength` or more was stopped by itself.
    KWStopwatchConfirmManager(KWNotificationCenter &center, StopwatchConfirmPort &window,
                              std::chrono::seconds automaticStopLength);

    /// With the confirmed length, which is above 0 and at most the original, and the original.
    using Completion = std::function<void(double confirmed, double original)>;
    /// Asks for a timing of so many seconds. Only while nothing else is asked for.
    void show(double duration, Completion completion);

    /// The person agrees to the length that stands there. One that is not above 0 is no answer.
    void confirm();
    /// The person closed the window: nothing is confirmed, and nobody told.
    void postpone();

    /// Called when the window has gone after an answer: it may ask for the next timing.
    std::function<void()> onClosed;

    bool isConfirming() const { return m_isConfirming; }
    double originalDuration() const { return m_originalDuration; }
    double confirmedDuration() const { return m_confirmedDuration; }

private:
    KWNotificationCenter &m_center;
    StopwatchConfirmPort &m_window;
    const std::chrono::seconds m_automaticStopLength;
    bool m_isConfirming = false;
    double m_originalDuration = 0;
    double m_confirmedDuration = 0;
    Completion m_completion;
};
