#pragma once

#include "nlp/Grammar.h"
#include "nlp/Match.h"
#include "nlp/Phrase.h"

#include <span>
#include <vector>

namespace nlp {

/// Finds every phrase of a text: for each token and each product the longest phrase that begins there.
///
/// Works from the last token to the first, so that a rule finds the phrases it is made of ready. A token
/// costs at most the rules of its symbols, so the time is in proportion to the text.
class Matcher {
public:
    Matcher(const Grammar &grammar, const Settings &settings) : m_grammar{grammar}, m_settings{settings} {}

    /// Where the phrases that begin at a token stand.
    struct Place {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        SymbolSet symbols; ///< theirs and those of the token: most patterns fail at a look
    };

    /// Replaces `phrases` with those of `tokens`, in no particular order. `places` is room to work in.
    void match(std::span<const Token> tokens, std::vector<Place> &places, std::vector<Phrase> &phrases);

private:
    void matchAt(std::uint32_t index);
    void tryRule(const Rule &rule, std::uint32_t index, SymbolSet &pending);
    bool matchFrom(const Rule &rule, std::size_t element, std::uint32_t index, Match &match);
    bool matchElement(Symbol symbol, std::uint32_t index, Match &match, std::uint32_t &next) const;
    void keep(const Phrase &phrase, SymbolSet &pending);
    const Phrase *phraseAt(std::uint32_t index, Symbol symbol) const;
    bool isClosedBefore(std::uint32_t index) const;
    bool isLastBefore(std::uint32_t index) const;
    bool isCountedAt(std::uint32_t index) const;
    bool isThingAt(std::uint32_t index) const;
    bool isStreetAt(std::uint32_t index) const;
    bool meansAt(std::uint32_t index, Symbol symbol) const;
    bool isNumberAt(std::uint32_t index) const;
    bool isBeginningOfLonger(std::uint32_t index, std::uint32_t end) const;

    const Grammar &m_grammar;
    const Settings &m_settings;
    std::span<const Token> m_tokens;
    std::vector<Place> *m_places = nullptr;
    std::vector<Phrase> *m_phrases = nullptr;
    std::uint32_t m_end = 0; ///< where the pattern that matched last ends
};

} // namespace nlp
