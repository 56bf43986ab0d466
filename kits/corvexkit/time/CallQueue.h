#pragma once

#include "corvexkit/time/ClockCall.h"

#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <set>

/// The pending calls of one clock, in the order they are due. For makers of clocks. One thread.
class CallQueue : public std::enable_shared_from_this<CallQueue> {
public:
    enum class Base { Wall, Monotonic };
    using Time = std::chrono::milliseconds; // since the base's fixed point

    /// What the clock reads at one moment.
    struct Reading {
        Time wall;
        Time monotonic;
        Time on(Base base) const { return base == Base::Wall ? wall : monotonic; }
    };

    /// `onChange` is called whenever nextDue() may have changed.
    explicit CallQueue(std::function<void()> onChange = {}) : m_onChange{std::move(onChange)} {}

    ClockCall add(Base base, Time due, std::function<void()> action);
    void remove(quint64 number);
    bool contains(quint64 number) const { return m_calls.contains(number); }
    bool isEmpty() const { return m_calls.empty(); }

    /// The earliest due time on one base.
    std::optional<Time> nextDue(Base base) const;
    /// How long until a call is due, zero when one is overdue; nothing when none is left.
    std::optional<Time> untilNext(Reading now) const;

    /// The number the next call will get; all calls of now have lower ones.
    quint64 nextNumber() const { return m_nextNumber; }
    /// Runs the call that has been due longest among those numbered below `limit`; false when none is.
    bool runNext(Reading now, quint64 limit = std::numeric_limits<quint64>::max());

    /// Drops all calls and stops announcing changes.
    void close();

private:
    struct Call {
        Base base;
        Time due;
        std::function<void()> action;
    };
    using Order = std::set<std::pair<Time, quint64>>;
    using Overdue = std::pair<Time, quint64>; // below zero; number

    Order &order(Base base) { return m_orders[std::size_t(base)]; }
    const Order &order(Base base) const { return m_orders[std::size_t(base)]; }
    std::optional<Overdue> longestDue(Base base, Time now, quint64 limit) const;
    Call take(std::map<quint64, Call>::iterator position);

    std::map<quint64, Call> m_calls; // by number
    std::array<Order, 2> m_orders;
    quint64 m_nextNumber = 1;
    std::function<void()> m_onChange;
};
