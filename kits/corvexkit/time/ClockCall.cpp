#include "corvexkit/time/ClockCall.h"

#include "corvexkit/time/CallQueue.h"

#include <utility>

ClockCall::ClockCall(std::weak_ptr<CallQueue> queue, quint64 number)
    : queue_{std::move(queue)}, number_{number}
{
}

ClockCall::ClockCall(ClockCall &&other) noexcept
    : queue_{std::move(other.queue_)}, number_{std::exchange(other.number_, 0)}
{
}

ClockCall &ClockCall::operator=(ClockCall &&other) noexcept
{
    if (this == &other) return *this;
    cancel();
    queue_ = std::move(other.queue_);
    number_ = std::exchange(other.number_, 0);
    return *this;
}

void ClockCall::cancel()
{
    // Let go first: what the call holds may own this handle and go with it.
    const auto queue = std::exchange(queue_, {}).lock();
    const quint64 number = std::exchange(number_, 0);
    if (queue) queue->remove(number);
}

bool ClockCall::isPending() const
{
    const auto queue = queue_.lock();
    return queue && queue->contains(number_);
}
