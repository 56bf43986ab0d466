#include "nlp/Matcher.h"

#include <algorithm>

namespace nlp {

void Matcher::match(std::span<const Token> tokens, std::vector<Place> &places, std::vector<Phrase> &phrases)
{
    phrases.clear();
    phrases.reserve(tokens.size() * 5); // more are rare; growing would cost a long text half its time
    places.assign(tokens.size() + 1, Place{});
    m_tokens = tokens;
    m_places = &places;
    m_phrases = &phrases;
    for (auto index = std::uint32_t(tokens.size()); index-- > 0;)
        matchAt(index);
}

namespace {

// Most rules fail here.
bool mayGoOn(const Rule &rule, const SymbolSet &following)
{
    const Element second = rule.pattern[1];
    return second.isOptional || second.symbol == Symbol::None || following.contains(second.symbol);
}

} // namespace

void Matcher::matchAt(std::uint32_t index)
{
    (*m_places)[index].first = std::uint32_t(m_phrases->size());
    const Token &token = m_tokens[index];
    SymbolSet pending;
    for (std::uint8_t i = 0; i < token.senseCount; ++i) {
        (*m_places)[index].symbols.insert(token.senses[i].symbol);
        if (m_grammar.hasRulesFrom(token.senses[i].symbol)) pending.insert(token.senses[i].symbol);
    }
    while (!pending.isEmpty()) {
        const Symbol symbol = pending.first();
        pending.remove(symbol);
        const auto next = symbol >= firstProduct ? phraseAt(index, symbol)->end : index + 1;
        const SymbolSet following = (*m_places)[next].symbols;
        for (const Rule *rule : m_grammar.rulesFrom(symbol))
            if (mayGoOn(*rule, following)) tryRule(*rule, index, pending);
    }
}

void Matcher::tryRule(const Rule &rule, std::uint32_t index, SymbolSet &pending)
{
    Match match{m_settings};
    if (!matchFrom(rule, 0, index, match)) return;
    const Phrase *known = phraseAt(index, rule.product);
    if (known != nullptr && known->end >= m_end) return;
    const bool isClosed = isClosedBefore(m_end);
    if (rule.guard == Guard::Closes && !isClosed) return;
    if (rule.guard == Guard::NotCounted && isCountedAt(m_end)) return;
    if (rule.guard == Guard::NotNumbered && isNumberAt(m_end) && !isClosed) return;
    if (rule.guard == Guard::Alone && (isCountedAt(m_end) || isBeginningOfLonger(index, m_end))) return;
    if (rule.guard == Guard::Ends && !isLastBefore(m_end)) return;
    if (rule.guard == Guard::NotTimed && (*m_places)[m_end].symbols.contains(Symbol::Clock)) return;
    if (rule.guard == Guard::Longest && isBeginningOfLonger(index, m_end)) return;
    match.setClosed(isClosed);
    Phrase phrase{rule.product, index, m_end, {}};
    if (rule.reading(match, phrase.fragment)) keep(phrase, pending);
}

// The depth is that of a pattern.
bool Matcher::matchFrom(const Rule &rule, std::size_t element, std::uint32_t index, Match &match)
{
    if (element == rule.pattern.size() || rule.pattern[element].symbol == Symbol::None) {
        m_end = index;
        return true;
    }
    const std::size_t size = match.size();
    std::uint32_t next = index;
    if (matchElement(rule.pattern[element].symbol, index, match, next) &&
        matchFrom(rule, element + 1, next, match))
        return true;
    match.shrink(size);
    return rule.pattern[element].isOptional && matchFrom(rule, element + 1, index, match);
}

bool Matcher::matchElement(Symbol symbol, std::uint32_t index, Match &match, std::uint32_t &next) const
{
    if (!(*m_places)[index].symbols.contains(symbol)) return false;
    if (symbol >= firstProduct) {
        const Phrase *phrase = phraseAt(index, symbol);
        match.push(symbol, *phrase);
        next = phrase->end;
    } else {
        match.push(symbol, m_tokens[index], *m_tokens[index].sense(symbol));
        next = index + 1;
    }
    return true;
}

void Matcher::keep(const Phrase &phrase, SymbolSet &pending)
{
    if (m_grammar.hasRulesFrom(phrase.symbol)) pending.insert(phrase.symbol);
    if (const Phrase *known = phraseAt(phrase.begin, phrase.symbol); known != nullptr) {
        (*m_phrases)[std::size_t(known - m_phrases->data())] = phrase;
        return;
    }
    m_phrases->push_back(phrase);
    Place &place = (*m_places)[phrase.begin];
    ++place.count;
    place.symbols.insert(phrase.symbol);
}

const Phrase *Matcher::phraseAt(std::uint32_t index, Symbol symbol) const
{
    const Place &place = (*m_places)[index];
    if (!place.symbols.contains(symbol)) return nullptr;
    const Phrase *const begin = m_phrases->data() + place.first;
    for (const Phrase *phrase = begin; phrase != begin + place.count; ++phrase)
        if (phrase->symbol == symbol) return phrase;
    return nullptr;
}

bool Matcher::isClosedBefore(std::uint32_t index) const
{
    if (index >= m_tokens.size()) return true;
    const Token &token = m_tokens[index];
    switch (token.kind) {
    case TokenKind::Word:
        return !token.isUnknownWord() && !token.means(Symbol::Measure) && !token.means(Symbol::Unit) &&
               !token.means(Symbol::Meridiem);
    case TokenKind::Number:
        return (*m_places)[index].count > 0;
    case TokenKind::Ideograph:
        return !token.touchesPrevious || !(isThingAt(index) || token.means(Symbol::HourMark));
    case TokenKind::Sign:
        return !token.means(Symbol::Colon) && !token.means(Symbol::Dot);
    default:
        return true;
    }
}

bool Matcher::isLastBefore(std::uint32_t index) const
{
    return index >= m_tokens.size() || m_tokens[index].kind == TokenKind::Sign ||
           m_tokens[index].kind == TokenKind::Opaque;
}

bool Matcher::isBeginningOfLonger(std::uint32_t index, std::uint32_t end) const
{
    const Place &place = (*m_places)[index];
    const auto begin = m_phrases->begin() + place.first;
    return std::any_of(begin, begin + place.count, [&](const Phrase &phrase) { return phrase.end > end; });
}

bool Matcher::isCountedAt(std::uint32_t index) const
{
    // "3-5 people"
    if (meansAt(index, Symbol::To) && isNumberAt(index + 1)) return isThingAt(index + 2);
    if (index >= m_tokens.size()) return false;
    const Token &token = m_tokens[index];
    if (token.kind == TokenKind::Word && token.means(Symbol::Of)) return true; // "2/3 of the budget"
    if (isNumberAt(index) && token.touchesPrevious) return meansAt(index + 1, Symbol::Measure); // "四点五米"
    return isThingAt(index) || isStreetAt(index) || token.means(Symbol::HourMark) ||
           token.means(Symbol::MonthMark) || token.means(Symbol::Colon) || token.means(Symbol::Meridiem);
}

bool Matcher::isThingAt(std::uint32_t index) const
{
    return meansAt(index, Symbol::Measure) || meansAt(index, Symbol::Unit) ||
           meansAt(index, Symbol::Counter) || meansAt(index, Symbol::CountMark);
}

bool Matcher::isStreetAt(std::uint32_t index) const
{
    constexpr std::uint32_t longestName = 3;
    const std::uint32_t end = index + longestName;
    while (index < end && index < m_tokens.size() && m_tokens[index].isUnknownWord())
        ++index;
    return meansAt(index, Symbol::Street);
}

bool Matcher::meansAt(std::uint32_t index, Symbol symbol) const
{
    return index < m_tokens.size() && m_tokens[index].means(symbol);
}

bool Matcher::isNumberAt(std::uint32_t index) const
{
    return index < m_tokens.size() && m_tokens[index].kind == TokenKind::Number;
}

} // namespace nlp
