#pragma once

#include "nlp/Symbol.h"

#include <array>
#include <span>
#include <string_view>

namespace nlp {

class Match;
struct Fragment;

/// A row of a language's vocabulary.
struct Word {
    const wchar_t *spellings; ///< lower case, separated by '|'; a space stands for any white space
    Symbol symbol;
    int value = 0;
};

/// One place of a pattern.
struct Element {
    constexpr Element(Symbol of = Symbol::None, bool mayBeMissing = false)
        : symbol{of}, isOptional{mayBeMissing}
    {
    }
    Symbol symbol;
    bool isOptional;
};

/// A place that may be empty; never the first of a pattern.
constexpr Element maybe(Symbol symbol) { return {symbol, true}; }

/// Turns what a pattern matched into its meaning; false when the values make no sense ("25:00").
using Reading = bool (*)(const Match &match, Fragment &fragment);

/// What must follow a phrase for it to count.
enum class Guard {
    None,
    Closes,      ///< no unknown word, loose number or counted thing: "at 5" but not "at 5 Main Street"
    NotCounted,  ///< no counted thing: "may 3" but not "may 3 people"
    NotNumbered, ///< no loose number: "friday week" but not "friday week 12"
    Alone,       ///< no counted thing, and nothing that makes it longer: "friday 8" but not "friday 8pm"
    Ends,        ///< no word or number: the end or a sign
    NotTimed,    ///< no time: "after 5, friday" but not "after midnight, friday 7am"
    Longest,     ///< nothing that makes it longer: "last friday" but not "last friday of may"
};

/// A row of a language's grammar: a sequence of symbols, and what it makes.
struct Rule {
    Symbol product;
    std::array<Element, 8> pattern;
    Reading reading;
    Guard guard = Guard::None;

    constexpr Symbol first() const { return pattern[0].symbol; }
};

/// Everything the library knows about one language.
struct LanguageTable {
    std::wstring_view code; ///< ISO 639-1, lower case
    std::span<const Word> words;
    std::span<const Rule> rules;
};

/// True when one ascending pass over the symbols finds every product of `rules`.
constexpr bool areOrdered(std::span<const Rule> rules)
{
    for (const Rule &rule : rules)
        if (rule.product < firstProduct || rule.product <= rule.first() || rule.pattern[0].isOptional)
            return false;
    return true;
}

} // namespace nlp
