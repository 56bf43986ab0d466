#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <string_view>

/// A short word of ASCII letters in upper case. Whatever is longer than every word of a rule, or not
/// ASCII, is the empty word.
class RuleWord {
public:
    explicit RuleWord(QStringView text)
    {
        if (text.size() > qsizetype(m_letters.size())) return;
        for (const QChar c : text) {
            if (c.unicode() >= 128) return;
            const auto letter = char(c.unicode());
            m_letters[m_size++] = letter >= 'a' && letter <= 'z' ? char(letter - 'a' + 'A') : letter;
        }
        m_isWord = true;
    }

    std::string_view view() const { return {m_letters.data(), m_isWord ? m_size : 0}; }

private:
    std::array<char, 10> m_letters; // read as far as it is written
    std::size_t m_size = 0;
    bool m_isWord = false;
};

/// Takes what stands before the next `separator` off `text`, with it; all of it when there is none.
QStringView takeUntil(QStringView &text, QChar separator);

enum class Signs { Refused, Allowed };

/// One to nine digits, with "+" or "-" before them where signs are allowed.
std::optional<int> toNumber(QStringView text, Signs signs);

/// "20300501", "20300501T090000" or "20300501T090000Z", RFC 5545 sections 3.3.4 and 3.3.5.
std::optional<CXRecurrenceRule::Until> toUntil(QStringView text);
