#include "nlp/Ranking.h"

#include "nlp/Characters.h"

#include <algorithm>

namespace nlp {

namespace {

bool isPiece(Symbol symbol)
{
    switch (symbol) {
    case Symbol::Clock:
    case Symbol::ClockRange:
    case Symbol::Day:
    case Symbol::DayRange:
    case Symbol::Repeat:
    case Symbol::Moment:
    case Symbol::Limit:
    case Symbol::Duration:
    case Symbol::Reminder:
    case Symbol::Part:
    case Symbol::Combined:
    case Symbol::Bygone:
    case Symbol::Unclear:
        return true;
    default:
        return false;
    }
}

int dayRank(const DayReference &day)
{
    switch (day.kind) {
    case DayReference::Kind::Date:
        return day.year != 0 ? 4 : 3;
    case DayReference::Kind::DayOfMonth:
    case DayReference::Kind::NthWeekday:
    case DayReference::Kind::Holiday:
        return 3;
    case DayReference::Kind::Ahead:
        return day.offset.isBelowOneDay() ? 1 : 2;
    case DayReference::Kind::Weekday:
    case DayReference::Kind::ThisWeekday:
    case DayReference::Kind::NextWeekday:
        return 2;
    case DayReference::Kind::FirstOf:
    case DayReference::Kind::LastOf:
    case DayReference::Kind::Weekend:
        return 1;
    }
    return 0;
}

// What says more ranks higher: by the days it names and by the time.
int rankOf(const Phrase &phrase)
{
    const Fragment &fragment = phrase.fragment;
    const auto fills = [&](unsigned slots) { return (fragment.slots & slots) != 0; };
    // These give other phrases' words another sense, so they come first.
    if (fills(ReminderSlot)) return 20;
    if (fills(UnclearSlot)) return 18;
    if (fills(BygoneSlot)) return 13;
    if (fills(CountSlot | UntilSlot)) return 11;
    const int days = fills(RepeatSlot | ExceptSlot)        ? 7
                     : fills(EndDaySlot) && fills(DaySlot) ? 6
                     : fills(DaySlot)                      ? dayRank(fragment.day)
                                                           : 0;
    const int times = fills(ClockSlot) ? (fills(EndClockSlot) ? 4 : 3) : fills(PartSlot) ? 1 : 0;
    return days * 2 + times;
}

bool isBetter(const Ranking::Candidate &a, const Ranking::Candidate &b)
{
    if (a.rank != b.rank) return a.rank > b.rank;
    if (a.phrase->begin != b.phrase->begin) return a.phrase->begin < b.phrase->begin;
    if (a.phrase->end != b.phrase->end) return a.phrase->end > b.phrase->end;
    return a.phrase->symbol < b.phrase->symbol;
}

bool isAtHome(const Fragment &fragment, unsigned filled)
{
    if ((filled & (DaySlot | PartSlot | ClockSlot | RepeatSlot)) == 0) return false;
    if ((fragment.slots & (CountSlot | UntilSlot | ExceptSlot)) != 0) return (filled & RepeatSlot) != 0;
    if ((fragment.slots & LengthSlot) == 0) return true;
    return !fragment.length.isBelowOneDay() || (filled & (ClockSlot | PartSlot)) != 0;
}

} // namespace

void Ranking::choose(std::span<const Phrase> phrases, std::vector<Candidate> &chosen)
{
    chosen.clear();
    const auto movesThing = [](const Token &token) { return token.means(Symbol::Mover); };
    m_mover = std::size_t(std::ranges::find_if(m_tokens, movesThing) - m_tokens.begin());
    constexpr int aboveAll = 32;
    for (const Phrase &phrase : phrases)
        if (isPiece(phrase.symbol) && standsFree(phrase))
            chosen.push_back(
                {&phrase, saysWhich(phrase), rankOf(phrase) + (isMarked(phrase) ? aboveAll : 0)});
    dropClarified(chosen);
    silencePurposes(chosen);
    const unsigned filled = fillSlots(chosen);
    const bool isMeant = std::ranges::any_of(
        chosen, [this](const Candidate &candidate) { return isMarked(*candidate.phrase); });
    const bool hasNoDay = !isMeant && ((filled & MovedSlot) != 0 || ((filled & UnclearDaySlot) != 0 &&
                                                                     (filled & (DaySlot | RepeatSlot)) == 0));
    std::erase_if(chosen, [&](const auto &candidate) {
        return hasNoDay || !isAtHome(candidate.phrase->fragment, filled);
    });
    std::sort(chosen.begin(), chosen.end(),
              [](const auto &a, const auto &b) { return a.phrase->begin < b.phrase->begin; });
}

// "Sat and sun" is unclear, but not within "every sat and sun".
void Ranking::dropClarified(std::vector<Candidate> &candidates)
{
    // They come by their beginnings, the last first.
    std::reverse(candidates.begin(), candidates.end());
    std::uint32_t reach = 0; // of those that begin before `begin`
    std::uint32_t reachHere = 0;
    std::uint32_t begin = 0;
    std::erase_if(candidates, [&](const Candidate &candidate) {
        const Phrase &phrase = *candidate.phrase;
        if (phrase.begin != begin) {
            reach = std::max(reach, reachHere);
            reachHere = 0;
            begin = phrase.begin;
        }
        if (phrase.symbol == Symbol::Unclear) return reach >= phrase.end;
        reachHere = std::max(reachHere, phrase.end);
        return false;
    });
}

// "Turkey for thanksgiving" says what for, where another day says when.
void Ranking::silencePurposes(std::vector<Candidate> &candidates) const
{
    const auto isPurpose = [this](const Phrase &phrase) {
        return phrase.symbol == Symbol::Day && m_tokens[phrase.begin].means(Symbol::For);
    };
    std::uint32_t end = 0; // of the last purpose: what begins within it is part of it
    bool hasOtherDay = false;
    bool hasPurpose = false;
    for (const Candidate &candidate : candidates) {
        const Phrase &phrase = *candidate.phrase;
        if (isPurpose(phrase)) {
            end = phrase.end;
            hasPurpose = true;
        } else if (phrase.begin >= end && (phrase.fragment.slots & DaySlot) != 0) {
            hasOtherDay = true;
        }
    }
    if (!hasPurpose || !hasOtherDay) return;
    for (Candidate &candidate : candidates)
        if (isPurpose(*candidate.phrase)) candidate.saysWhich = true;
}

unsigned Ranking::fillSlots(std::vector<Candidate> &candidates)
{
    m_claimed.assign(m_tokens.size(), 0);
    std::sort(candidates.begin(), candidates.end(), isBetter);
    unsigned filled = 0;
    std::erase_if(candidates, [&](const Candidate &candidate) {
        const Phrase &phrase = *candidate.phrase;
        if (isClaimed(phrase)) return true;
        // A phrase that comes too late still owns its words: its time belongs to its day.
        std::fill(m_claimed.begin() + phrase.begin, m_claimed.begin() + phrase.end, 1);
        const unsigned slots = phrase.fragment.slots;
        if ((slots & UnclearSlot) != 0) filled |= slots;
        if (candidate.saysWhich || (slots & (filled | BygoneSlot)) != 0) return true;
        filled |= slots;
        return false;
    });
    return filled;
}

// Phrases that hold others rank before them, so the ends tell whether two overlap.
bool Ranking::isClaimed(const Phrase &phrase) const
{
    return m_claimed[phrase.begin] != 0 || m_claimed[phrase.end - 1] != 0;
}

bool Ranking::standsFree(const Phrase &phrase) const
{
    return isFreeBefore(m_tokens[phrase.begin]) && isFreeAfter(m_tokens[phrase.end - 1]) && !isCount(phrase);
}

bool Ranking::isMarked(const Phrase &phrase) const
{
    const std::size_t begin = m_tokens[phrase.begin].begin;
    return begin > 0 && at(begin - 1) == L'*' && (begin == 1 || isSpace(at(begin - 2)));
}

// "Postpone the call from monday to thursday": the days are those of the call.
bool Ranking::isMoved(const Phrase &phrase) const
{
    return m_mover < phrase.begin && m_tokens[phrase.begin].means(Symbol::From) &&
           (phrase.fragment.slots & EndDaySlot) != 0;
}

// "明天的会议" says which meeting, as "tomorrow's meeting" does, and "noon rush" which rush.
bool Ranking::saysWhich(const Phrase &phrase) const
{
    if (isMarked(phrase)) return false;
    if (isMoved(phrase)) return true;
    if (phrase.end == m_tokens.size()) return false;
    const Token &next = m_tokens[phrase.end];
    const bool isBare = phrase.end - phrase.begin == 1;
    if (isBare && m_tokens[phrase.begin].means(Symbol::NamedTime))
        return next.isUnknownWord() || next.means(Symbol::To);
    return next.kind == TokenKind::Ideograph && next.means(Symbol::Of);
}

bool Ranking::isFreeBefore(const Token &token) const
{
    if (token.begin == 0 || token.kind == TokenKind::Ideograph) return true;
    const wchar_t sign = at(token.begin - 1);
    const wchar_t beyond = token.begin > 1 ? at(token.begin - 2) : L' ';
    const wchar_t edge = at(token.begin);
    if (isLetter(sign) || isDigit(sign)) return false;
    switch (sign) {
    case L'-':
        if (isDigit(edge)) return false;
        [[fallthrough]];
    case L'/':
    case L'.':
        return !isLetter(beyond) && !isDigit(beyond);
    case L':':
    case L',':
        return !isDigit(edge) || !isDigit(beyond);
    case L'$':
    case L'#':
    case L'@':
    case L'_':
    case L'=':
    case L'&':
    case L'~':
    case L'+':
    case L'^':
    case L'\\':
    case 0xA3:   // pound
    case 0xA5:   // yen
    case 0xFFE5: // full-width yen
    case 0x20AC: // euro
        return false;
    default:
        return true;
    }
}

bool Ranking::isFreeAfter(const Token &token) const
{
    if (token.kind == TokenKind::Ideograph) return true;
    const wchar_t sign = at(token.end);
    const wchar_t beyond = at(token.end + 1);
    const wchar_t edge = at(token.end - 1);
    const bool goesOn = isLetter(beyond) || isDigit(beyond);
    if (isLetter(sign) || isDigit(sign)) return false;
    switch (sign) {
    case L'-':
    case L'/':
    case L'\\':
    case L'.':
    case L'@':
    case L'&':
    case L'\'':
        return !goesOn;
    case L':':
    case L',':
        return !isDigit(edge) || !isDigit(beyond);
    case L'%':
    case L'$':
    case L'_':
    case L'=':
    case L'+':
    case L'#':
    case 0xA3:
    case 0xA5:
    case 0xB0: // degree
    case 0x20AC:
        return false;
    default:
        return true;
    }
}

bool Ranking::isCount(const Phrase &phrase) const
{
    const Token &first = m_tokens[phrase.begin];
    const bool hasNumber = first.kind == TokenKind::Number || first.means(Symbol::From);
    if (!hasNumber || phrase.begin == 0) return false;
    // A day whose month is none is no day either.
    const Token &previous = m_tokens[phrase.begin - 1];
    const auto isJoinedBy = [&](Symbol sign) {
        return phrase.end - phrase.begin > 1 && m_tokens[phrase.begin + 1].means(sign);
    };
    const bool isFraction = phrase.end - phrase.begin == 3 && isJoinedBy(Symbol::Slash);
    if (isFraction && previous.kind == TokenKind::Number) return true; // "3 1/2"
    if (previous.means(Symbol::Gauge) && isJoinedBy(Symbol::Dot)) return true;
    return previous.means(Symbol::ScoreWord) || (previous.means(Symbol::MonthMark) && first.touchesPrevious);
}

} // namespace nlp
