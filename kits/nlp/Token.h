#pragma once

#include "nlp/Symbol.h"

#include <cstdint>

namespace nlp {

/// One meaning of a word.
struct Sense {
    Symbol symbol = Symbol::None;
    int value = 0;
};

enum class TokenKind : std::uint8_t {
    Word,
    Ideograph, ///< written without spaces between words
    Number,
    Sign,
    Opaque, ///< quoted text, a link, the place of another token: no phrase reaches into or across it
};

/// A piece of the text: code points [begin, end).
struct Token {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    const Sense *senses = nullptr;
    std::uint8_t senseCount = 0;
    TokenKind kind = TokenKind::Sign;
    bool touchesPrevious = false;
    std::uint8_t digits = 0; ///< digits of a Number written with them, 0 for one written in words
    int value = 0;           ///< of a Number or Ordinal written with digits; -1 is too large to matter

    const Sense *sense(Symbol symbol) const
    {
        for (const Sense *candidate = senses; candidate != senses + senseCount; ++candidate)
            if (candidate->symbol == symbol) return candidate;
        return nullptr;
    }
    bool means(Symbol symbol) const { return sense(symbol) != nullptr; }
    int valueAs(const Sense &sense) const { return kind == TokenKind::Number ? value : sense.value; }
    bool isUnknownWord() const
    {
        return kind == TokenKind::Word && (senseCount == 0 || senses->symbol == Symbol::Plain);
    }
};

} // namespace nlp
