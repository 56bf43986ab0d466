#pragma once

#include <QtGlobal>

#include <memory>

class CallQueue;

/// Handle of one pending call of a clock; dropping or overwriting it cancels the call. Cancelling
/// inside the call itself, after it ran or after the clock is gone does nothing. A handle belongs to
/// the thread of its clock.
class [[nodiscard]] ClockCall {
public:
    /// A handle of nothing.
    ClockCall() = default;
    ClockCall(ClockCall &&other) noexcept;
    ClockCall &operator=(ClockCall &&other) noexcept;
    ~ClockCall() { cancel(); }

    void cancel();
    /// Whether the call is still to come.
    bool isPending() const;

private:
    friend class CallQueue;
    ClockCall(std::weak_ptr<CallQueue> queue, quint64 number);

    std::weak_ptr<CallQueue> m_queue;
    quint64 m_number = 0;
};
