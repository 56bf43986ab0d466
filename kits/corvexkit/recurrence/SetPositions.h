#pragma once

#include "corvexkit/recurrence/NumberSet.h"

#include <algorithm>
#include <span>

/// The choice of BYSETPOS among the occurrences of one period.
class SetPositions {
public:
    explicit SetPositions(const OrdinalSet<366> &ordinals)
    {
        ordinals.forEach([this](int ordinal) { m_ordinals[m_size++] = ordinal; });
    }

    bool isEmpty() const { return m_size == 0; }

    /// Where those chosen among `count` stand, from 0, ascending. Valid until the next call.
    std::span<const int> among(int count)
    {
        if (count != m_lastCount) choose(count);
        return {m_chosen.data(), m_chosenSize};
    }

private:
    void choose(int count)
    {
        m_lastCount = count;
        m_chosenSize = 0;
        for (std::size_t i = 0; i < m_size; ++i) {
            const int ordinal = m_ordinals[i];
            if (std::abs(ordinal) <= count)
                m_chosen[m_chosenSize++] = ordinal > 0 ? ordinal - 1 : count + ordinal;
        }
        const auto end = m_chosen.begin() + std::ptrdiff_t(m_chosenSize);
        std::sort(m_chosen.begin(), end);
        m_chosenSize = std::size_t(std::unique(m_chosen.begin(), end) - m_chosen.begin());
    }

    static constexpr std::size_t most = 2 * 366;
    std::array<int, most> m_ordinals; // the first m_size of them
    std::array<int, most> m_chosen;   // the first m_chosenSize of them
    std::size_t m_size = 0;
    std::size_t m_chosenSize = 0;
    int m_lastCount = -1;
};
