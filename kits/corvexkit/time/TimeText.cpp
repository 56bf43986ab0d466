#include "corvexkit/time/TimeText.h"

#include <algorithm>
#include <array>
#include <cstdint>

using namespace std::chrono;

namespace {

// Takes a text apart from left to right; once a step failed, good() is false for good.
class TextReader {
public:
    explicit TextReader(QStringView text) : m_position{text.begin()}, m_end{text.end()} {}

    bool good() const { return m_good; }
    bool done() const { return m_good && m_position == m_end; }

    bool next(char16_t character)
    {
        if (!m_good || m_position == m_end || *m_position != character) return false;
        ++m_position;
        return true;
    }
    void expect(char16_t character) { m_good = next(character) && m_good; }

    int digits(int count)
    {
        int number = 0;
        for (; count > 0; --count) {
            const int value = digit();
            if (value < 0) m_good = false;
            if (!m_good) return 0;
            number = number * 10 + value;
        }
        return number;
    }

    // The places after a decimal point, as milliseconds.
    milliseconds fraction()
    {
        int number = 0, places = 0;
        for (int value = digit(); value >= 0; value = digit())
            if (++places <= 3) number = number * 10 + value;
        m_good = m_good && places >= 1 && places <= 9;
        for (; places < 3; ++places)
            number *= 10;
        return milliseconds{number};
    }

    void refuseUnless(bool condition) { m_good = m_good && condition; }

private:
    int digit()
    {
        if (m_position == m_end || *m_position < u'0' || *m_position > u'9') return -1;
        return (m_position++)->unicode() - u'0';
    }

    const QChar *m_position;
    const QChar *m_end;
    bool m_good = true;
};

enum class Seconds { Optional, Required };

Day takeDay(TextReader &reader)
{
    const year inYear{reader.digits(4)};
    reader.expect(u'-');
    const month inMonth{unsigned(reader.digits(2))};
    reader.expect(u'-');
    const year_month_day date{inYear, inMonth, day{unsigned(reader.digits(2))}};
    reader.refuseUnless(date.ok());
    return reader.good() ? Day{date} : Day{};
}

milliseconds takeTimeOfDay(TextReader &reader, Seconds need)
{
    const int hour = reader.digits(2);
    reader.expect(u':');
    const int minute = reader.digits(2);
    milliseconds time = hours{hour} + minutes{minute};
    int second = 0;
    if (reader.next(u':')) {
        second = reader.digits(2);
        time += seconds{second};
        if (reader.next(u'.')) time += reader.fraction();
    } else {
        reader.refuseUnless(need == Seconds::Optional);
    }
    reader.refuseUnless(hour < 24 && minute < 60 && second < 60);
    return time;
}

seconds takeOffset(TextReader &reader)
{
    if (reader.next(u'Z') || reader.next(u'z')) return 0s;
    const bool west = reader.next(u'-');
    if (!west) reader.expect(u'+');
    const int hour = reader.digits(2);
    reader.expect(u':');
    const int minute = reader.digits(2);
    reader.refuseUnless(hour < 24 && minute < 60);
    const seconds offset = hours{hour} + minutes{minute};
    return west ? -offset : offset;
}

// The calendar has no dates before and after.
constexpr LocalTime firstMoment{local_days{year::min() / January / 1}};
constexpr LocalTime lastMoment{local_days{year::max() / December / 31} + 24h - 1ms};

// Room for the longest of all: a sign, a year of five digits, milliseconds and "Z".
class TextWriter {
public:
    void put(char16_t character) { m_text[std::size_t(m_length++)] = character; }

    void number(unsigned value, int places)
    {
        for (int i = places - 1; i >= 0; --i, value /= 10)
            m_text[std::size_t(m_length + i)] = char16_t(u'0' + value % 10);
        m_length += places;
    }

    void day(Day day)
    {
        const year_month_day date{day};
        const int inYear = int(date.year());
        if (inYear < 0) put(u'-');
        const auto magnitude = unsigned(inYear < 0 ? -inYear : inYear);
        number(magnitude, magnitude > 9999 ? 5 : 4);
        put(u'-');
        number(unsigned(date.month()), 2);
        put(u'-');
        number(unsigned(date.day()), 2);
    }

    void minutesOf(milliseconds time)
    {
        number(unsigned(time / 1h), 2);
        put(u':');
        number(unsigned(time % 1h / 1min), 2);
    }

    void secondsOf(milliseconds time)
    {
        put(u':');
        number(unsigned(time % 1min / 1s), 2);
    }

    void dayAndTime(LocalTime moment, TimeText::Fraction fraction)
    {
        const LocalTime dated = std::clamp(moment, firstMoment, lastMoment);
        const Day onDay = floor<days>(dated);
        const milliseconds time = dated - onDay;
        day(onDay);
        put(u'T');
        minutesOf(time);
        secondsOf(time);
        const milliseconds rest = time % 1s;
        using TimeText::Fraction;
        if (fraction == Fraction::Never || (fraction == Fraction::WhenNeeded && rest == 0ms)) return;
        put(u'.');
        number(unsigned(rest.count()), 3);
    }

    QString text() const { return QString{reinterpret_cast<const QChar *>(m_text.data()), m_length}; }

private:
    std::array<char16_t, 32> m_text;
    int m_length = 0;
};

} // namespace

namespace TimeText {

std::optional<Day> toDay(QStringView text)
{
    TextReader reader{text};
    const Day day = takeDay(reader);
    return reader.done() ? std::optional{day} : std::nullopt;
}

QString fromDay(Day day)
{
    TextWriter writer;
    writer.day(day);
    return writer.text();
}

std::optional<milliseconds> toTimeOfDay(QStringView text)
{
    TextReader reader{text};
    const milliseconds time = takeTimeOfDay(reader, Seconds::Optional);
    return reader.done() ? std::optional{time} : std::nullopt;
}

QString fromTimeOfDay(milliseconds sinceMidnight)
{
    TextWriter writer;
    writer.minutesOf(sinceMidnight);
    if (sinceMidnight % 1min >= 1s) writer.secondsOf(sinceMidnight);
    return writer.text();
}

std::optional<LocalTime> toLocalTime(QStringView text)
{
    TextReader reader{text};
    const Day day = takeDay(reader);
    if (!reader.next(u'T')) reader.expect(u' ');
    const milliseconds time = takeTimeOfDay(reader, Seconds::Optional);
    return reader.done() ? std::optional{day + time} : std::nullopt;
}

QString fromLocalTime(LocalTime time, Fraction fraction)
{
    TextWriter writer;
    writer.dayAndTime(time, fraction);
    return writer.text();
}

std::optional<Instant> toInstant(QStringView text)
{
    TextReader reader{text};
    const Day day = takeDay(reader);
    if (!reader.next(u'T') && !reader.next(u't')) reader.expect(u' ');
    const milliseconds time = takeTimeOfDay(reader, Seconds::Required);
    const seconds offset = takeOffset(reader);
    if (!reader.done()) return {};
    return Instant{day.time_since_epoch() + time - offset};
}

QString fromInstant(Instant instant, Fraction fraction)
{
    TextWriter writer;
    writer.dayAndTime(LocalTime{instant.time_since_epoch()}, fraction);
    writer.put(u'Z');
    return writer.text();
}

} // namespace TimeText
