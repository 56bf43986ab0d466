#include "nlp/Tokenizer.h"

#include "nlp/Characters.h"

#include <algorithm>
#include <array>

namespace nlp {

namespace {

struct QuotationMarks {
    wchar_t opening;
    wchar_t closing;
};

constexpr std::array<QuotationMarks, 10> quotationMarks{{{L'"', L'"'},
                                                         {L'`', L'`'},
                                                         {L'\'', L'\''},
                                                         {0x201C, 0x201D},
                                                         {0x201E, 0x201C},
                                                         {0x00AB, 0x00BB},
                                                         {0x300C, 0x300D},
                                                         {0x300E, 0x300F},
                                                         {0x300A, 0x300B},
                                                         {0x2018, 0x2019}}};

constexpr std::uint8_t mostDigits = 8;

constexpr Sense numberSense{Symbol::Number};
constexpr Sense ordinalSense{Symbol::Ordinal};
constexpr Sense colonSense{Symbol::Colon};
constexpr Sense slashSense{Symbol::Slash};
constexpr Sense dotSense{Symbol::Dot};
constexpr Sense fullStopSense{Symbol::FullStop};
constexpr Sense commaSense{Symbol::Comma};
constexpr Sense toSense{Symbol::To};
constexpr Sense andSense{Symbol::And};
constexpr std::array<Sense, 2> meridiemSenses{{{Symbol::Meridiem, 0}, {Symbol::Meridiem, 1}}};
// "2 @ 5" is a price.
constexpr std::array<Sense, 2> atSenses{{{Symbol::AtSign}, {Symbol::At}}};
constexpr Sense timeMarkSense{Symbol::TimeMark};
constexpr Sense hourSense{Symbol::Unit, int(Unit::Hour)};
constexpr std::array<Sense, 2> hyphenSenses{{{Symbol::Hyphen}, {Symbol::To}}};

int ideographDigit(wchar_t character)
{
    constexpr std::wstring_view digits = L"〇一二三四五六七八九";
    if (character == L'零') return 0;
    if (character == L'两' || character == L'兩') return 2;
    const auto found = digits.find(character);
    return found == digits.npos ? -1 : int(found);
}

// "廿五" is 25.
int ideographTens(wchar_t character) { return character == L'廿' ? 20 : character == L'卅' ? 30 : 0; }

int ideographPower(wchar_t character)
{
    return character == L'十' ? 10 : character == L'百' ? 100 : character == L'千' ? 1000 : 0;
}

bool isNumeral(wchar_t character)
{
    return ideographDigit(character) >= 0 || ideographPower(character) > 0 || ideographTens(character) > 0;
}

// "二〇二六" is written digit by digit, "二十六" with powers of ten.
int ideographNumber(std::wstring_view numerals)
{
    if (numerals.size() > mostDigits) return -1;
    int total = 0;
    int digit = 0;
    bool afterDigit = false;
    for (const wchar_t numeral : numerals) {
        if (const int power = ideographPower(numeral); power > 0) {
            total += (afterDigit ? digit : 1) * power;
            digit = 0;
            afterDigit = false;
        } else if (const int tens = ideographTens(numeral); tens > 0) {
            total += tens;
        } else {
            digit = digit * 10 + ideographDigit(numeral);
            afterDigit = true;
        }
    }
    return total + digit;
}

bool isOrdinalSuffix(std::wstring_view suffix)
{
    return suffix == L"st" || suffix == L"nd" || suffix == L"rd" || suffix == L"th";
}

bool isGraphicAscii(wchar_t character) { return character > L' ' && character < 0x7F; }

bool isLink(std::wstring_view chunk)
{
    if (chunk.starts_with(L"www.") || chunk.starts_with(L"mailto:")) return true;
    if (chunk.find(L"://") != chunk.npos) return true;
    const auto sign = chunk.find(L'@');
    return sign != chunk.npos && sign > 0 && chunk.find(L'.', sign) != chunk.npos;
}

} // namespace

void Tokenizer::tokenize(std::wstring_view text, std::wstring &scratch, std::vector<Token> &tokens)
{
    scratch.resize(text.size());
    std::transform(text.begin(), text.end(), scratch.begin(), folded);
    tokens.clear();
    m_original = text;
    m_text = scratch;
    m_tokens = &tokens;
    m_position = m_chunkEnd = m_unclosed = 0;
    while (m_position < m_text.size())
        readPiece();
}

void Tokenizer::readPiece()
{
    const wchar_t character = m_text[m_position];
    if (isSpace(character))
        ++m_position;
    else if (character == objectReplacement)
        append(m_position + 1, TokenKind::Opaque);
    else if (readLink() || readQuotation())
        return;
    else if (isDigit(character))
        readNumber();
    else if (isIdeograph(character))
        readIdeographs();
    else if (isLetter(character))
        readWord();
    else
        readSign();
}

bool Tokenizer::readLink()
{
    if (m_position < m_chunkEnd || !isGraphicAscii(m_text[m_position])) return false;
    const auto chunk = m_text.substr(m_position);
    const auto end = std::find_if_not(chunk.begin(), chunk.end(), isGraphicAscii);
    m_chunkEnd = m_position + std::uint32_t(end - chunk.begin());
    if (!isLink(chunk.substr(0, m_chunkEnd - m_position))) return false;
    append(m_chunkEnd, TokenKind::Opaque);
    return true;
}

bool Tokenizer::readQuotation()
{
    const wchar_t opening = m_original[m_position];
    if (opening < 0x80 && opening != L'"' && opening != L'\'' && opening != L'`') return false;
    for (std::size_t i = 0; i < quotationMarks.size(); ++i) {
        if (quotationMarks[i].opening != opening || (m_unclosed & (1U << i)) != 0) continue;
        // An inch mark stands after its number.
        if (m_position > 0 && isAlphanumericAt(m_position - 1) && opening < 0x2000) continue;
        if (const auto closing = closingMark(quotationMarks[i].closing); closing != 0) {
            append(closing + 1, TokenKind::Opaque);
            return true;
        }
        m_unclosed |= 1U << i;
    }
    return false;
}

std::uint32_t Tokenizer::closingMark(wchar_t mark) const
{
    const bool mayBeApostrophe = mark == L'\'' || mark == 0x2019;
    auto closing = m_original.find(mark, m_position + 1);
    // One inside a word, or at its beginning, is an apostrophe.
    while (closing != m_original.npos && mayBeApostrophe &&
           (isAlphanumericAt(std::uint32_t(closing) + 1) || isSpace(m_text[closing - 1])))
        closing = m_original.find(mark, closing + 1);
    return closing == m_original.npos ? 0 : std::uint32_t(closing);
}

void Tokenizer::readNumber()
{
    if (takeWord(m_vocabulary.longestWordAt(m_text, m_position), TokenKind::Word)) return;
    std::uint32_t end = m_position;
    int value = 0;
    while (isDigit(at(end))) {
        if (end - m_position < mostDigits) value = value * 10 + (at(end) - L'0');
        ++end;
    }
    const std::uint32_t digits = end - m_position;
    if (digits > mostDigits) value = -1;
    std::uint32_t wordEnd = end;
    while (isAlphanumericAt(wordEnd) && !isIdeograph(at(wordEnd)))
        ++wordEnd;
    const bool isOrdinal = isOrdinalSuffix(m_text.substr(end, wordEnd - end));
    append(isOrdinal ? wordEnd : end, TokenKind::Number, isOrdinal ? &ordinalSense : &numberSense, 1);
    m_tokens->back().digits = std::uint8_t(std::min<std::uint32_t>(digits, 255));
    m_tokens->back().value = value;
}

void Tokenizer::readIdeographs()
{
    const auto hit = m_vocabulary.longestWordAt(m_text, m_position);
    std::uint32_t end = m_position;
    while (isNumeral(at(end)))
        ++end;
    if (hit.end >= end && takeWord(hit, TokenKind::Ideograph)) return;
    if (end == m_position) return append(end + 1, TokenKind::Ideograph);
    const int value = ideographNumber(m_text.substr(m_position, end - m_position));
    append(end, TokenKind::Number, &numberSense, 1);
    m_tokens->back().value = value;
}

void Tokenizer::readWord()
{
    const bool standsInNumbers = m_position > 0 && isDigit(at(m_position - 1)) && isDigit(at(m_position + 1));
    if (at(m_position) == L't' && standsInNumbers)
        return append(m_position + 1, TokenKind::Sign, &timeMarkSense, 1);
    if (at(m_position) == L'h' && standsInNumbers) // "1h30m"
        return append(m_position + 1, TokenKind::Word, &hourSense, 1);
    if (isShortMeridiem()) {
        const bool isAfternoon = at(m_position) == L'p';
        return append(m_position + 1, TokenKind::Word, &meridiemSenses.at(isAfternoon), 1);
    }
    if (takeWord(m_vocabulary.longestWordAt(m_text, m_position), TokenKind::Word)) return;
    std::uint32_t end = m_position;
    while (isAlphanumericAt(end) || (at(end) == L'\'' && isLetter(at(end + 1))))
        ++end;
    append(end, TokenKind::Word);
}

// "2:45p", "thu 8p".
bool Tokenizer::isShortMeridiem() const
{
    if (m_tokens->size() < 2 || (at(m_position) != L'a' && at(m_position) != L'p')) return false;
    if (!isDigit(at(m_position - 1)) || isAlphanumericAt(m_position + 1)) return false;
    const Token &beforeNumber = (*m_tokens)[m_tokens->size() - 2];
    return beforeNumber.means(Symbol::Colon) || beforeNumber.means(Symbol::Weekday) ||
           beforeNumber.means(Symbol::AmbiguousWeekday) || beforeNumber.means(Symbol::RelativeDay);
}

void Tokenizer::readSign()
{
    const bool touchesBoth =
        m_position > 0 && isAlphanumericAt(m_position - 1) && isAlphanumericAt(m_position + 1);
    const Sense *sense = nullptr;
    std::uint8_t count = 1;
    switch (m_text[m_position]) {
    case L':':
        sense = touchesBoth ? &colonSense : nullptr;
        break;
    case L'/':
        sense = touchesBoth ? &slashSense : nullptr;
        break;
    case L'.':
        sense = touchesBoth ? &dotSense : &fullStopSense;
        break;
    case L',':
    case 0x3001:
        sense = &commaSense;
        break;
    case L'~':
        sense = &toSense;
        break;
    case L'&':
    case L'+':
        sense = &andSense;
        break;
    case L'@':
        sense = standsAlone() ? atSenses.data() : nullptr;
        count = !m_tokens->empty() && m_tokens->back().kind == TokenKind::Number ? 1 : 2;
        break;
    case L'-':
        sense = touchesBoth ? hyphenSenses.data() : &toSense;
        count = touchesBoth ? 2 : 1;
        break;
    default:
        break;
    }
    append(m_position + 1, TokenKind::Sign, sense, sense != nullptr ? count : 0);
}

bool Tokenizer::standsAlone() const { return m_position == 0 || isSpace(m_text[m_position - 1]); }

bool Tokenizer::takeWord(const Vocabulary::Hit &hit, TokenKind kind)
{
    // A possessive belongs to the noun behind it: "today's report" says nothing of when.
    if (hit.end == 0 || (at(hit.end) == L'\'' && isLetter(at(hit.end + 1)))) return false;
    append(hit.end, kind, hit.senses, hit.senseCount);
    return true;
}

void Tokenizer::append(std::uint32_t end, TokenKind kind, const Sense *senses, std::uint8_t senseCount)
{
    const bool touches = !m_tokens->empty() && m_tokens->back().end == m_position;
    m_tokens->push_back({m_position, end, senses, senseCount, kind, touches});
    m_position = end;
}

bool Tokenizer::isAlphanumericAt(std::uint32_t index) const
{
    const wchar_t character = at(index);
    return isLetter(character) || isDigit(character) || isIdeograph(character);
}

} // namespace nlp
