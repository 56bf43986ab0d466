#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "corvexkit/recurrence/CXRecurringObject.h"

#include <limits>
#include <vector>

/// Takes the wall-clock times that a rule yields, in ascending order, and keeps the instants of those
/// that are wanted: after the start, within the range, COUNT and UNTIL, not excluded, each once.
class OccurrenceCollector {
public:
    struct Range {
        Instant from;
        Instant to; ///< included
        std::size_t limit = std::numeric_limits<std::size_t>::max();
    };

    /// Refers to `object`, which has a start. The range reaches no further than the years 1 to 9999.
    OccurrenceCollector(const CXRecurringObject &object, const CXRecurrenceRule &rule, const Range &range);

    /// The start as a wall-clock time: midnight of its day for an all-day object.
    std::chrono::local_seconds start() const { return m_start; }
    /// Wall-clock times before this are not wanted, but count.
    std::chrono::local_seconds begin() const { return m_begin; }
    /// The last one that is wanted.
    std::chrono::local_seconds end() const { return m_end; }

    /// Keeps the start itself, if it is wanted. Answers whether any later one is.
    bool takeStart();
    /// Answers whether any later one is wanted.
    bool take(std::chrono::local_seconds local)
    {
        if (local <= m_last) return true; // not after the start, or a day that two periods share
        if (local > m_end || m_left == 0) return false;
        m_last = local;
        --m_left;
        return local < m_begin || keep(local);
    }
    /// Counts `count` times before begin() that are not handed over one by one.
    void pass(std::int64_t count) { m_left -= std::min(count, m_left); }
    /// Makes room for about `count` more.
    void expect(std::int64_t count);

    std::vector<Instant> instants() &&;

private:
    void boundByUntil(const CXRecurrenceRule::Until &until);
    void boundLocally();
    bool keep(std::chrono::local_seconds local)
    {
        if (local < m_stretchBegin || local >= m_stretchEnd) return keepUnsettled(local);
        return add(Instant{(local - m_offset).time_since_epoch() + m_fraction});
    }
    bool keepUnsettled(std::chrono::local_seconds local);
    bool add(Instant instant);
    bool isEnough(Instant last) const
    {
        // What a gap moved forward may stand behind readings still to come.
        return m_instants.size() >= m_range.limit && last >= m_instants.back();
    }

    const CXRecurringObject &m_object;
    Range m_range;
    std::chrono::local_seconds m_start;
    std::chrono::milliseconds m_fraction; // of the start's second
    std::chrono::local_seconds m_begin;
    std::chrono::local_seconds m_end;
    std::chrono::local_seconds m_last; // the last that counted
    std::int64_t m_left = std::numeric_limits<std::int64_t>::max();

    // The stretch of the zone that served last.
    std::chrono::local_seconds m_stretchBegin{};
    std::chrono::local_seconds m_stretchEnd{};
    std::chrono::seconds m_offset{};

    std::vector<Instant> m_instants; // ascending
};
