#include "nlp/Match.h"

namespace nlp {

int Match::value(Symbol symbol, int nth) const
{
    const Capture *capture = find(symbol, nth);
    if (capture == nullptr || capture->value < 0) return capture == nullptr ? 0 : capture->value;
    return symbol == Symbol::Number ? capture->value : capture->value & ~AmbiguousWord;
}

bool Match::isAmbiguous(Symbol symbol) const
{
    const Capture *capture = find(symbol, 0);
    return capture != nullptr && (capture->value & AmbiguousWord) != 0;
}

int Match::digits(int nth) const
{
    const Capture *capture = find(Symbol::Number, nth);
    return capture == nullptr ? 0 : capture->digits;
}

bool Match::isSpelled(Symbol symbol, int nth) const
{
    const Capture *capture = find(symbol, nth);
    return capture != nullptr && capture->kind == TokenKind::Word;
}

bool Match::isIdeographic() const
{
    const Capture *capture = find(Symbol::Number, 0);
    return capture != nullptr && capture->kind == TokenKind::Number && capture->digits == 0;
}

const Fragment &Match::fragment(Symbol symbol, int nth) const
{
    static const Fragment nothing;
    const Capture *capture = find(symbol, nth);
    return capture == nullptr || capture->phrase == nullptr ? nothing : capture->phrase->fragment;
}

void Match::push(Symbol symbol, const Token &token, const Sense &sense)
{
    m_captures[m_size++] = {symbol, nullptr, token.valueAs(sense), token.digits, token.kind};
}

void Match::push(Symbol symbol, const Phrase &phrase)
{
    m_captures[m_size++] = {symbol, &phrase, 0, 0, TokenKind::Opaque};
}

const Match::Capture *Match::find(Symbol symbol, int nth) const
{
    for (std::size_t i = 0; i < m_size; ++i)
        if (m_captures[i].symbol == symbol && nth-- == 0) return &m_captures[i];
    return nullptr;
}

} // namespace nlp
