#include "nlp/Answer.h"

namespace nlp {

using namespace std::chrono;

namespace {

void appendNumber(std::wstring &text, int number, int width)
{
    std::size_t at = text.size() + std::size_t(width);
    text.append(std::size_t(width), L'0');
    for (; number > 0; number /= 10)
        text[--at] = wchar_t(L'0' + number % 10);
}

void appendTime(std::wstring &text, LocalTime time)
{
    const auto day = floor<days>(time);
    const year_month_day date{day};
    const hh_mm_ss clock{time - day};
    appendNumber(text, int(date.year()), 4);
    text += L'-';
    appendNumber(text, int(unsigned(date.month())), 2);
    text += L'-';
    appendNumber(text, int(unsigned(date.day())), 2);
    text += L'T';
    appendNumber(text, int(clock.hours().count()), 2);
    text += L':';
    appendNumber(text, int(clock.minutes().count()), 2);
    text += L":00";
}

void appendEscaped(std::wstring &text, wchar_t character)
{
    constexpr std::wstring_view digits = L"0123456789abcdef";
    const auto unit = std::uint32_t(character);
    if (character == L'"' || character == L'\\') {
        text += L'\\';
        text += character;
    } else if (unit < 0x20) {
        text += L"\\u00";
        text += digits[unit >> 4];
        text += digits[unit & 15];
    } else {
        const bool isCodePoint = unit <= 0x10FFFF && (unit < 0xD800 || unit > 0xDFFF);
        text += isCodePoint ? character : wchar_t(0xFFFD);
    }
}

void appendString(std::wstring &text, std::wstring_view content)
{
    text += L'"';
    for (const wchar_t character : content)
        appendEscaped(text, character);
    text += L'"';
}

template <typename Strings>
void appendList(std::wstring &text, const Strings &strings)
{
    text += L'[';
    for (bool isFirst = true; const auto &string : strings) {
        if (!isFirst) text += L',';
        appendString(text, string);
        isFirst = false;
    }
    text += L']';
}

// Reads the digits of a fixed-width field; -1 when there are others.
int field(std::wstring_view text, std::size_t begin, std::size_t width)
{
    int value = 0;
    for (const wchar_t character : text.substr(begin, width)) {
        if (character < L'0' || character > L'9') return -1;
        value = value * 10 + (character - L'0');
    }
    return value;
}

} // namespace

std::wstring Answer::json() const
{
    std::wstring text;
    text.reserve(256);
    text += L"{\"startDate\":\"";
    if (isFound) appendTime(text, start);
    text += L"\",\"dueDate\":\"";
    if (due) appendTime(text, *due);
    text += L"\",\"isAllDay\":";
    text += isAllDay ? L"true" : L"false";
    text += L",\"repeatFlag\":";
    appendString(text, repeatRule);
    text += L",\"recognizeStrings\":";
    appendList(text, recognized);
    text += L",\"reminder\":";
    appendList(text, reminders);
    text += L'}';
    return text;
}

std::optional<LocalTime> timeFromText(std::wstring_view text)
{
    const bool hasTime = text.size() == 19;
    if ((!hasTime && text.size() != 10) || text[4] != L'-' || text[7] != L'-') return std::nullopt;
    if (hasTime && (text[10] != L'T' || text[13] != L':' || text[16] != L':')) return std::nullopt;
    const int yearField = field(text, 0, 4);
    const int monthField = field(text, 5, 2);
    const int dayField = field(text, 8, 2);
    if (yearField < 0 || monthField < 0 || dayField < 0) return std::nullopt;
    const auto date = Calendar::validated(year{yearField} / monthField / dayField);
    if (!date) return std::nullopt;
    if (!hasTime) return LocalTime{*date};
    const int hour = field(text, 11, 2);
    const int minute = field(text, 14, 2);
    const int second = field(text, 17, 2);
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 60) return std::nullopt;
    return *date + hours{hour} + minutes{minute};
}

} // namespace nlp
