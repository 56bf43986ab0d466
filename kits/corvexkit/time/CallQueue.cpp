#include "corvexkit/time/CallQueue.h"

#include <algorithm>

using Base = CallQueue::Base;

ClockCall CallQueue::add(Base base, Time due, std::function<void()> action)
{
    const quint64 number = m_nextNumber++;
    m_calls.emplace(number, Call{base, due, std::move(action)});
    order(base).emplace(due, number);
    if (m_onChange) m_onChange();
    return ClockCall{weak_from_this(), number};
}

CallQueue::Call CallQueue::take(std::map<quint64, Call>::iterator position)
{
    Call call = std::move(position->second);
    order(call.base).erase({call.due, position->first});
    m_calls.erase(position);
    if (m_onChange) m_onChange();
    return call;
}

void CallQueue::remove(quint64 number)
{
    const auto found = m_calls.find(number);
    if (found != m_calls.end()) take(found);
}

std::optional<CallQueue::Time> CallQueue::nextDue(Base base) const
{
    if (order(base).empty()) return {};
    return order(base).begin()->first;
}

std::optional<CallQueue::Time> CallQueue::untilNext(Reading now) const
{
    std::optional<Time> least;
    for (const Base base : {Base::Wall, Base::Monotonic}) {
        const std::optional<Time> due = nextDue(base);
        if (!due) continue;
        const Time wait = std::max(*due - now.on(base), Time::zero());
        least = std::min(least.value_or(wait), wait);
    }
    return least;
}

std::optional<CallQueue::Overdue> CallQueue::longestDue(Base base, Time now, quint64 limit) const
{
    for (const auto &[due, number] : order(base)) {
        if (due > now) break;
        if (number < limit) return Overdue{due - now, number};
    }
    return {};
}

bool CallQueue::runNext(Reading now, quint64 limit)
{
    const auto wall = longestDue(Base::Wall, now.wall, limit);
    const auto monotonic = longestDue(Base::Monotonic, now.monotonic, limit);
    if (!wall && !monotonic) return false;
    const Overdue chosen = !wall ? *monotonic : !monotonic ? *wall : std::min(*wall, *monotonic);
    const Call call = take(m_calls.find(chosen.second));
    if (call.action) call.action();
    return true;
}

void CallQueue::close()
{
    m_onChange = {};
    const auto dropped = std::exchange(m_calls, {});
    m_orders = {};
}
