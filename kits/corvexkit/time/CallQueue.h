#pragma once

#include "corvexkit/time/ClockCall.h"
#include "corvexkit/time/Instant.h"

#include <functional>
#include <map>
#include <optional>

/// The pending calls of one clock, in the order they are due. For makers of clocks. One thread.
class CallQueue : public std::enable_shared_from_this<CallQueue> {
public:
    enum class Base { Wall, Monotonic };
    using Time = std::chrono::milliseconds; // since the base's fixed point

    /// What the clock reads now on both bases.
    struct Reading {
        Time wall;
        Time monotonic;
        Time on(Base base) const { return base == Base::Wall ? wall : monotonic; }
    };

    ClockCall add(Base base, Time due, std::function<void()> action);
    void remove(quint64 number);
    bool contains(quint64 number) const;

    /// The earliest due time on one base.
    std::optional<Time> nextDue(Base base) const;
    /// How long until the next call is due on either base, never below zero; nothing when none is left.
    std::optional<Time> untilNext(Reading now) const;

    /// The number the next call will get: calls below it are older than this moment.
    quint64 nextNumber() const { return nextNumber_; }
    /// Runs the call that has been due longest, if one with a number below `limit` is due.
    bool runNext(Reading now, quint64 limit);

    /// Called when a call was added or taken away.
    void setOnChange(std::function<void()> onChange) { onChange_ = std::move(onChange); }

private:
    struct Call {
        Base base;
        Time due;
        std::function<void()> action;
    };
    using Calls = std::map<quint64, Call>; // ordered by number

    Calls::const_iterator next(Reading now, quint64 limit) const;
    void changed() const;

    Calls calls_;
    quint64 nextNumber_ = 1;
    std::function<void()> onChange_;
};
