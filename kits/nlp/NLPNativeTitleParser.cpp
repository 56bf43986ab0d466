#include "nlp/NLPNativeTitleParser.h"

#include "nlp/DateBuilder.h"
#include "nlp/Matcher.h"
#include "nlp/Tokenizer.h"

static_assert(sizeof(wchar_t) == 4, "a wide character must hold any code point");

namespace {

// The room that parsing works in, kept from one title to the next.
struct Workspace {
    std::wstring folded;
    std::vector<nlp::Token> tokens;
    std::vector<nlp::Matcher::Place> places;
    std::vector<nlp::Phrase> phrases;
    std::vector<nlp::Ranking::Candidate> chosen;
    std::vector<char> claimed;

    void releaseWhenLarge()
    {
        constexpr std::size_t usual = 4096;
        if (folded.capacity() > usual || phrases.capacity() > usual) *this = {};
    }
};

void setTime(nlp::TimeOfDay &time, int hour, int minute)
{
    if (hour >= 0 && hour < 24 && minute >= 0 && minute < 60) time = {hour, minute};
}

bool joins(const nlp::Token &token)
{
    return token.means(nlp::Symbol::Comma) ||
           (token.kind == nlp::TokenKind::Ideograph && token.means(nlp::Symbol::Of));
}

bool areNeighbours(const std::vector<nlp::Token> &tokens, const nlp::Phrase &first, const nlp::Phrase &second)
{
    for (std::uint32_t i = first.end; i < second.begin; ++i)
        if (!joins(tokens[i])) return false;
    return true;
}

// "Remind me at 5 to call": the word belongs to the phrase, not to what is to be done.
std::uint32_t endWithTo(const std::vector<nlp::Token> &tokens, std::uint32_t end)
{
    const bool isFollowed = end + 1 < tokens.size() && tokens[end].kind == nlp::TokenKind::Word &&
                            tokens[end].means(nlp::Symbol::To);
    return isFollowed ? end + 1 : end;
}

bool isCopula(const nlp::Token &token)
{
    return token.kind == nlp::TokenKind::Word && token.means(nlp::Symbol::Copula);
}

bool isSign(const nlp::Token &token) { return token.kind == nlp::TokenKind::Sign; }

// "The party is friday": without its day nothing is said of the party.
std::uint32_t beginWithCopula(const std::vector<nlp::Token> &tokens, std::uint32_t begin, std::uint32_t end)
{
    // Marks of other kinds are opaque.
    const bool isLast =
        end == tokens.size() || isSign(tokens[end]) || tokens[end].kind == nlp::TokenKind::Opaque;
    const bool isSaid = begin >= 2 && isCopula(tokens[begin - 1]) && !isSign(tokens[begin - 2]);
    return isLast && isSaid ? begin - 1 : begin;
}

// "Tomorrow is trash day".
std::uint32_t endWithCopula(const std::vector<nlp::Token> &tokens, std::uint32_t begin, std::uint32_t end)
{
    const bool isSaid = end + 1 < tokens.size() && isCopula(tokens[end]) && !isSign(tokens[end + 1]);
    return begin == 0 && isSaid ? end + 1 : end;
}

void addStrings(std::wstring_view text, const Workspace &work, nlp::Answer &answer)
{
    for (std::size_t i = 0; i < work.chosen.size();) {
        std::size_t last = i;
        while (last + 1 < work.chosen.size() &&
               areNeighbours(work.tokens, *work.chosen[last].phrase, *work.chosen[last + 1].phrase))
            ++last;
        const nlp::Phrase &first = *work.chosen[i].phrase;
        std::uint32_t endToken = work.chosen[last].phrase->end;
        if (first.symbol == nlp::Symbol::Reminder) endToken = endWithTo(work.tokens, endToken);
        const std::uint32_t beginToken = beginWithCopula(work.tokens, first.begin, endToken);
        endToken = endWithCopula(work.tokens, beginToken, endToken);
        const auto begin = work.tokens[beginToken].begin;
        const auto end = work.tokens[endToken - 1].end;
        answer.recognized.push_back(text.substr(begin, end - begin));
        i = last + 1;
    }
}

} // namespace

void NLPNativeTitleParser::setCustomizeHour(int morningHour, int morningMinute, int afternoonHour,
                                            int afternoonMinute, int eveningHour, int eveningMinute,
                                            int nightHour, int nightMinute)
{
    setTime(m_settings.morning, morningHour, morningMinute);
    setTime(m_settings.afternoon, afternoonHour, afternoonMinute);
    setTime(m_settings.evening, eveningHour, eveningMinute);
    setTime(m_settings.night, nightHour, nightMinute);
}

void NLPNativeTitleParser::setStartDay(int firstWeekday)
{
    if (firstWeekday >= 1 && firstWeekday <= 7) m_settings.firstWeekday = firstWeekday;
}

void NLPNativeTitleParser::setIs24DateFormat(bool is24DateFormat)
{
    m_settings.clockFace = is24DateFormat ? nlp::ClockFace::TwentyFourHours : nlp::ClockFace::TwelveHours;
}

void NLPNativeTitleParser::setIsUsOrUkDateFormat(bool isMonthFirst)
{
    m_settings.fieldOrder = isMonthFirst ? nlp::FieldOrder::MonthFirst : nlp::FieldOrder::DayFirst;
}

std::wstring NLPNativeTitleParser::parse(const std::wstring &text, const std::wstring &baseDate,
                                         bool marksImplicitReminder, const std::wstring &language) const
{
    using ImplicitReminder = nlp::DateBuilder::ImplicitReminder;
    thread_local Workspace work;
    nlp::Answer answer;
    const auto now = nlp::timeFromText(baseDate);
    if (!now) return answer.json();

    const nlp::Grammar &grammar = nlp::Grammar::forLanguage(language);
    nlp::Tokenizer{grammar.vocabulary()}.tokenize(text, work.folded, work.tokens);
    nlp::Matcher{grammar, m_settings}.match(work.tokens, work.places, work.phrases);
    nlp::Ranking{work.folded, work.tokens, work.claimed}.choose(work.phrases, work.chosen);
    const auto reminder = marksImplicitReminder ? ImplicitReminder::Marked : ImplicitReminder::Unmarked;
    if (nlp::DateBuilder{m_settings, *now, reminder}.build(work.chosen, answer))
        addStrings(text, work, answer);

    std::wstring json = answer.json();
    work.releaseWhenLarge();
    return json;
}
