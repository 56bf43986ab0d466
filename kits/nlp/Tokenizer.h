#pragma once

#include "nlp/Token.h"
#include "nlp/Vocabulary.h"

#include <string>

namespace nlp {

/// Cuts a text into words, numbers and signs, and looks the words up.
///
/// Quoted text, links and mail addresses become one opaque token each, and so does U+FFFC. Digits of all
/// widths and the ideographs for numbers become numbers. Takes time in proportion to the text.
class Tokenizer {
public:
    explicit Tokenizer(const Vocabulary &vocabulary) : m_vocabulary{vocabulary} {}

    /// Replaces `tokens` with those of `text`. `scratch` is room to work in.
    void tokenize(std::wstring_view text, std::wstring &scratch, std::vector<Token> &tokens);

private:
    void readPiece();
    bool readLink();
    bool readQuotation();
    std::uint32_t closingMark(wchar_t mark) const; ///< 0 = nowhere
    void readNumber();
    void readIdeographs();
    void readWord();
    void readSign();
    bool standsAlone() const; ///< after white space
    bool isShortMeridiem() const;
    bool takeWord(const Vocabulary::Hit &hit, TokenKind kind);
    void append(std::uint32_t end, TokenKind kind, const Sense *senses = nullptr,
                std::uint8_t senseCount = 0);
    wchar_t at(std::uint32_t index) const { return index < m_text.size() ? m_text[index] : L'\0'; }
    bool isAlphanumericAt(std::uint32_t index) const;

    const Vocabulary &m_vocabulary;
    std::wstring_view m_text; ///< folded
    std::wstring_view m_original;
    std::vector<Token> *m_tokens = nullptr;
    std::uint32_t m_position = 0;
    std::uint32_t m_chunkEnd = 0; ///< up to here it is known that there is no link
    std::uint32_t m_unclosed = 0; ///< bit per kind of quotation mark that closes nowhere from here on
};

} // namespace nlp
