#pragma once

#include "nlp/Phrase.h"
#include "nlp/Token.h"

#include <span>
#include <string_view>
#include <vector>

namespace nlp {

/// Chooses, of all phrases of a text, those that make up its one date.
///
/// A phrase counts when it stands free: not inside a word, an address, a price or a longer number, and not
/// within a longer phrase. Of those that fill the same part of the date the more specific wins, then the
/// earlier. A duration, an end of a repeat or a reminder counts only beside something it can belong to. What
/// is unclear keeps its words from being read, unless a longer phrase makes it clear. A phrase right behind
/// "*" is meant: it comes before all others.
class Ranking {
public:
    struct Candidate {
        const Phrase *phrase = nullptr;
        bool saysWhich = false; ///< it stands as an attribute, so it keeps its words and says nothing
        int rank = 0;
    };

    /// `text` is folded; `tokens` are those of the text; `claimed` is room to work in.
    Ranking(std::wstring_view text, std::span<const Token> tokens, std::vector<char> &claimed)
        : m_text{text}, m_tokens{tokens}, m_claimed{claimed}
    {
    }

    /// Replaces `chosen` with the best of `phrases`, in text order. None when they make no date.
    void choose(std::span<const Phrase> phrases, std::vector<Candidate> &chosen);

private:
    static void dropClarified(std::vector<Candidate> &candidates);
    void silencePurposes(std::vector<Candidate> &candidates) const;
    unsigned fillSlots(std::vector<Candidate> &candidates);
    bool isClaimed(const Phrase &phrase) const;
    bool standsFree(const Phrase &phrase) const;
    bool isFreeBefore(const Token &token) const;
    bool isFreeAfter(const Token &token) const;
    bool isCount(const Phrase &phrase) const;
    bool isMarked(const Phrase &phrase) const;
    bool isMoved(const Phrase &phrase) const;
    bool saysWhich(const Phrase &phrase) const;
    wchar_t at(std::size_t index) const { return index < m_text.size() ? m_text[index] : L' '; }

    std::wstring_view m_text;
    std::span<const Token> m_tokens;
    std::vector<char> &m_claimed; ///< per token: a phrase has had its say about it
    std::size_t m_mover = 0; ///< the first word that moves a thing; the number of tokens if there is none
};

} // namespace nlp
