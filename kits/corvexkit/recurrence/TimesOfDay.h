#pragma once

#include "corvexkit/recurrence/NumberSet.h"

#include <chrono>

/// All times that some hours, minutes and seconds make together, since midnight, ascending.
class TimesOfDay {
public:
    /// As bits: bit n stands for n. None of the three is empty.
    TimesOfDay(std::uint64_t hours, std::uint64_t minutes, std::uint64_t seconds)
        : m_hours{hours}
        , m_minutes{minutes}
        , m_seconds{seconds}
        , m_minuteCount{std::popcount(minutes)}
        , m_secondCount{std::popcount(seconds)}
        , m_count{std::popcount(hours) * m_minuteCount * m_secondCount}
        , m_first{time(std::countr_zero(hours), std::countr_zero(minutes), std::countr_zero(seconds))}
    {
    }

    int count() const { return m_count; }
    std::chrono::seconds first() const { return m_first; }
    /// The time at `index`, from 0.
    std::chrono::seconds at(int index) const
    {
        const int minute = index / m_secondCount;
        return time(bitAt(m_hours, minute / m_minuteCount), bitAt(m_minutes, minute % m_minuteCount),
                    bitAt(m_seconds, index % m_secondCount));
    }

    /// Calls `visit` with every time until it answers false; answers whether none did.
    template <class Visit>
    bool forEach(Visit visit) const
    {
        if (m_count == 1) return visit(m_first);
        for (std::uint64_t h = m_hours; h != 0; h &= h - 1)
            for (std::uint64_t m = m_minutes; m != 0; m &= m - 1)
                for (std::uint64_t s = m_seconds; s != 0; s &= s - 1)
                    if (!visit(time(std::countr_zero(h), std::countr_zero(m), std::countr_zero(s))))
                        return false;
        return true;
    }

private:
    static std::chrono::seconds time(int hour, int minute, int second)
    {
        return std::chrono::seconds{(hour * 60 + minute) * 60 + second};
    }
    static int bitAt(std::uint64_t bits, int index)
    {
        for (; index > 0; --index)
            bits &= bits - 1;
        return std::countr_zero(bits);
    }

    std::uint64_t m_hours;
    std::uint64_t m_minutes;
    std::uint64_t m_seconds;
    int m_minuteCount;
    int m_secondCount;
    int m_count;
    std::chrono::seconds m_first;
};
