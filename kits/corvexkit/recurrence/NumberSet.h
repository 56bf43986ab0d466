#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Calls `visit` with the number of every bit that is set, ascending.
template <class Visit>
constexpr void forEachBit(std::uint64_t bits, Visit visit)
{
    for (; bits != 0; bits &= bits - 1)
        visit(std::countr_zero(bits));
}

/// Whole numbers from `Least` to `Most`, both from 0 to 63. A value without allocation.
template <int Least, int Most>
class NumberSet {
public:
    static constexpr int least = Least;
    static constexpr int most = Most;
    static constexpr bool hasNegatives = false;

    /// `number` lies within the bounds.
    constexpr void insert(int number) { m_bits |= std::uint64_t{1} << number; }
    constexpr bool contains(int number) const { return ((m_bits >> number) & 1) != 0; }
    constexpr bool isEmpty() const { return m_bits == 0; }
    /// Bit n stands for n.
    constexpr std::uint64_t bits() const { return m_bits; }

    template <class Visit>
    constexpr void forEach(Visit visit) const
    {
        forEachBit(m_bits, visit);
    }

    constexpr bool operator==(const NumberSet &) const = default;

private:
    std::uint64_t m_bits = 0;
};

/// Places counted from a start, 1 to `Most`, or from an end, -1 to -`Most`. A value without allocation.
template <int Most>
class OrdinalSet {
public:
    static constexpr int least = 1;
    static constexpr int most = Most;
    static constexpr bool hasNegatives = true;

    /// `ordinal` lies within the bounds.
    constexpr void insert(int ordinal)
    {
        const auto place = std::size_t(std::abs(ordinal));
        (ordinal < 0 ? m_fromEnd : m_fromStart)[place / 64] |= std::uint64_t{1} << place % 64;
    }
    constexpr bool contains(int ordinal) const
    {
        const auto place = std::size_t(std::abs(ordinal));
        return (((ordinal < 0 ? m_fromEnd : m_fromStart)[place / 64] >> place % 64) & 1) != 0;
    }
    constexpr bool isEmpty() const { return *this == OrdinalSet{}; }

    /// Where everything fits into one word: bit n stands for n, or for -n.
    constexpr std::uint64_t fromStart() const requires(Most < 64) { return m_fromStart[0]; }
    constexpr std::uint64_t fromEnd() const requires(Most < 64) { return m_fromEnd[0]; }

    /// Those from the start first, each group ascending: 1, 2, -2, -1.
    template <class Visit>
    constexpr void forEach(Visit visit) const
    {
        for (std::size_t i = 0; i < m_fromStart.size(); ++i)
            forEachBit(m_fromStart[i], [&](int bit) { visit(int(i) * 64 + bit); });
        for (std::size_t i = m_fromEnd.size(); i-- > 0;)
            for (std::uint64_t left = m_fromEnd[i]; left != 0; left &= ~(std::bit_floor(left)))
                visit(-(int(i) * 64 + std::bit_width(left) - 1));
    }

    constexpr bool operator==(const OrdinalSet &) const = default;

private:
    using Words = std::array<std::uint64_t, std::size_t(Most) / 64 + 1>;
    Words m_fromStart{};
    Words m_fromEnd{};
};
