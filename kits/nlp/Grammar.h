#pragma once

#include "nlp/Vocabulary.h"

#include <bit>

namespace nlp {

/// A set of symbols.
class SymbolSet {
public:
    constexpr void insert(Symbol symbol) { m_words[int(symbol) >> 6] |= bit(symbol); }
    constexpr void remove(Symbol symbol) { m_words[int(symbol) >> 6] &= ~bit(symbol); }
    constexpr bool contains(Symbol symbol) const { return (m_words[int(symbol) >> 6] & bit(symbol)) != 0; }
    constexpr bool isEmpty() const { return (m_words[0] | m_words[1]) == 0; }
    /// The first in the order of the enumeration. The set is not empty.
    constexpr Symbol first() const
    {
        return Symbol(m_words[0] != 0 ? std::countr_zero(m_words[0]) : 64 + std::countr_zero(m_words[1]));
    }

private:
    static constexpr std::uint64_t bit(Symbol symbol) { return std::uint64_t{1} << (int(symbol) & 63); }

    std::array<std::uint64_t, 2> m_words{};
    static_assert(symbolCount <= 128);
};

/// The tables of English and of one more language, made ready for reading text.
/// Unchanging once made, so any thread may read it.
class Grammar {
public:
    /// The grammar for a language code such as "zh", "zh-Hant" or "en_GB"; a language without a table
    /// is read as English. Made on the first call and kept.
    static const Grammar &forLanguage(std::wstring_view code);

    const Vocabulary &vocabulary() const { return m_vocabulary; }

    /// The rules whose pattern begins with `symbol`, in the order of their tables.
    std::span<const Rule *const> rulesFrom(Symbol symbol) const;

    bool hasRulesFrom(Symbol symbol) const { return m_beginnings.contains(symbol); }

private:
    explicit Grammar(std::span<const LanguageTable *const> languages);

    Vocabulary m_vocabulary;
    std::vector<const Rule *> m_rules;                         ///< by first symbol
    std::array<std::uint16_t, symbolCount + 1> m_firstRules{}; ///< where each symbol's begin
    SymbolSet m_beginnings;
};

} // namespace nlp
