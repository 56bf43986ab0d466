#pragma once

#include "nlp/Phrase.h"
#include "nlp/Settings.h"
#include "nlp/Token.h"

#include <array>

namespace nlp {

/// What a rule's pattern matched, as its reading asks for it: by symbol, so that a language may say
/// things in its own order.
class Match {
public:
    explicit Match(const Settings &settings) : m_settings{settings} {}

    const Settings &settings() const { return m_settings; }

    /// True when the pattern matched at least `nth` + 1 places of `symbol`.
    bool has(Symbol symbol, int nth = 0) const { return find(symbol, nth) != nullptr; }

    /// The value of the `nth` terminal `symbol`, without the mark of ambiguity; 0 when there is none.
    int value(Symbol symbol, int nth = 0) const;

    /// True when the first terminal `symbol` is a word that may mean something else.
    bool isAmbiguous(Symbol symbol) const;

    /// True when the first of `symbol` stands before the first of `other`.
    bool isBefore(Symbol symbol, Symbol other) const { return find(symbol, 0) < find(other, 0); }

    /// How many digits the `nth` number was written with, 0 when it was written in words.
    int digits(int nth = 0) const;

    /// True when the `nth` number or ordinal was written as a word: "five", "second".
    bool isSpelled(Symbol symbol, int nth = 0) const;

    /// True when the first number was written in ideographs.
    bool isIdeographic() const;

    /// The meaning of the `nth` product `symbol`; the empty one when there is none.
    const Fragment &fragment(Symbol symbol, int nth = 0) const;

    /// The meanings of all products in the order of the pattern.
    template <typename Visitor>
    void forEachFragment(Visitor visit) const
    {
        for (std::size_t i = 0; i < m_size; ++i)
            if (m_captures[i].phrase != nullptr) visit(m_captures[i].phrase->fragment);
    }

    /// True when nothing that follows contradicts the phrase; see Guard::Closes.
    bool isClosed() const { return m_isClosed; }

    void push(Symbol symbol, const Token &token, const Sense &sense);
    void push(Symbol symbol, const Phrase &phrase);
    void shrink(std::size_t size) { m_size = size; }
    std::size_t size() const { return m_size; }
    void setClosed(bool closed) { m_isClosed = closed; }

private:
    struct Capture {
        Symbol symbol;
        const Phrase *phrase; ///< of a product
        int value;
        int digits;
        TokenKind kind;
    };
    const Capture *find(Symbol symbol, int nth) const;

    const Settings &m_settings;
    std::array<Capture, 8> m_captures; // the first m_size are set
    std::size_t m_size = 0;
    bool m_isClosed = false;
};

} // namespace nlp
