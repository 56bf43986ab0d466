#include "corvexkit/time/ClockCall.h"

#include "corvexkit/time/CallQueue.h"

#include <utility>

ClockCall::ClockCall(std::weak_ptr<CallQueue> queue, quint64 number)
    : m_queue{std::move(queue)}, m_number{number}
{
}

ClockCall::ClockCall(ClockCall &&other) noexcept
    : m_queue{std::move(other.m_queue)}, m_number{std::exchange(other.m_number, 0)}
{
}

ClockCall &ClockCall::operator=(ClockCall &&other) noexcept
{
    if (this == &other) return *this;
    cancel();
    m_queue = std::move(other.m_queue);
    m_number = std::exchange(other.m_number, 0);
    return *this;
}

void ClockCall::cancel()
{
    // Let go first: what the call holds may own this handle and go with it.
    const auto queue = std::exchange(m_queue, {}).lock();
    const quint64 number = std::exchange(m_number, 0);
    if (queue) queue->remove(number);
}

bool ClockCall::isPending() const
{
    const auto queue = m_queue.lock();
    return queue && queue->contains(m_number);
}
