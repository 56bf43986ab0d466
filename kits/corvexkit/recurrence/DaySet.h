#pragma once

#include "corvexkit/recurrence/NumberSet.h"
#include "corvexkit/time/Instant.h"

#include <algorithm>
#include <cassert>

/// Some days of one period of a rule, as bits from the period's first day on: a year and a week at most.
class DaySet {
public:
    static constexpr int most = 384;

    /// Empties the set; from now on bit 0 stands for `first`. Holds `size` days.
    void reset(Day first, int size)
    {
        assert(size <= most);
        m_first = first;
        m_used = (std::size_t(size) + 63) / 64;
        std::fill_n(m_words.begin(), m_used, 0);
    }

    Day first() const { return m_first; }
    void insert(int index) { m_words[std::size_t(index) / 64] |= std::uint64_t{1} << index % 64; }
    /// Inserts index + n for every bit n that is set.
    void insertBits(int index, std::uint64_t bits)
    {
        const auto word = std::size_t(index) / 64;
        m_words[word] |= bits << index % 64;
        if (index % 64 != 0 && word + 1 < m_used) m_words[word + 1] |= bits >> (64 - index % 64);
    }
    /// Keeps what `other` holds too, a set of the same first day and size.
    void intersect(const DaySet &other)
    {
        for (std::size_t i = 0; i < m_used; ++i)
            m_words[i] &= other.m_words[i];
    }
    /// Keeps the days for which `keep` is true.
    template <class Keep>
    void filter(Keep keep)
    {
        for (std::size_t i = 0; i < m_used; ++i)
            forEachBit(m_words[i], [&](int bit) {
                if (!keep(dayAt(i, bit))) m_words[i] &= ~(std::uint64_t{1} << bit);
            });
    }

    int count() const
    {
        int count = 0;
        for (std::size_t i = 0; i < m_used; ++i)
            count += std::popcount(m_words[i]);
        return count;
    }

    /// Calls `visit` with every day, ascending, until it answers false; answers whether none did.
    template <class Visit>
    bool forEach(Visit visit) const
    {
        for (std::size_t i = 0; i < m_used; ++i)
            for (std::uint64_t left = m_words[i]; left != 0; left &= left - 1)
                if (!visit(dayAt(i, std::countr_zero(left)))) return false;
        return true;
    }

private:
    Day dayAt(std::size_t word, int bit) const { return m_first + std::chrono::days{int(word) * 64 + bit}; }

    Day m_first;
    std::size_t m_used = 0;
    std::array<std::uint64_t, most / 64> m_words; // the first m_used of them
};
