#include "corvexkit/time/ZoneRule.h"

using namespace std::chrono;

namespace {

// Takes a rule apart from left to right. Each step answers whether it found what it looked for.
class RuleReader {
public:
    explicit RuleReader(std::string_view text) : m_text{text} {}

    bool atEnd() const { return m_text.empty(); }
    bool atDate() const { return m_text.starts_with(','); }

    bool take(char character)
    {
        if (!m_text.starts_with(character)) return false;
        m_text.remove_prefix(1);
        return true;
    }

    bool takeName()
    {
        const bool quoted = take('<');
        const auto belongs = [quoted](char c) {
            const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
            return letter || (quoted && ((c >= '0' && c <= '9') || c == '+' || c == '-'));
        };
        std::size_t length = 0;
        while (length < m_text.size() && belongs(m_text[length]))
            ++length;
        m_text.remove_prefix(length);
        return length >= 3 && (!quoted || take('>'));
    }

    bool takeNumber(unsigned least, unsigned most, unsigned &number)
    {
        std::size_t length = 0;
        for (number = 0; length < m_text.size() && length < 3; ++length) {
            if (m_text[length] < '0' || m_text[length] > '9') break;
            number = number * 10 + unsigned(m_text[length] - '0');
        }
        m_text.remove_prefix(length);
        return length > 0 && number >= least && number <= most;
    }

    bool takeTime(unsigned mostHours, seconds &time)
    {
        const bool negative = take('-');
        if (!negative) take('+');
        unsigned hour = 0, minute = 0, second = 0;
        if (!takeNumber(0, mostHours, hour)) return false;
        if (take(':') && !takeNumber(0, 59, minute)) return false;
        if (take(':') && !takeNumber(0, 59, second)) return false;
        time = hours{hour} + minutes{minute} + seconds{second};
        if (negative) time = -time;
        return true;
    }

    bool takeDate(ZoneRule::Date &date)
    {
        using Kind = ZoneRule::Date::Kind;
        bool good = false;
        if (take('M')) {
            date.kind = Kind::MonthWeekDay;
            good = takeNumber(1, 12, date.month) && take('.') && takeNumber(1, 5, date.week) && take('.') &&
                   takeNumber(0, 6, date.day);
        } else if (take('J')) {
            date.kind = Kind::JulianDay;
            good = takeNumber(1, 365, date.day);
        } else {
            date.kind = Kind::DayOfYear;
            good = takeNumber(0, 365, date.day);
        }
        return good && (!take('/') || takeTime(167, date.time));
    }

private:
    std::string_view m_text;
};

} // namespace

local_seconds ZoneRule::Date::inYear(year year) const
{
    const local_days newYear{year / January / 1};
    switch (kind) {
    case Kind::MonthWeekDay: {
        const std::chrono::month inMonth{month};
        const weekday onDay{day};
        return (week == 5 ? local_days{year / inMonth / onDay[last]}
                          : local_days{year / inMonth / onDay[week]}) +
               time;
    }
    case Kind::JulianDay:
        return newYear + days{day - 1 + (year.is_leap() && day > 59)} + time;
    case Kind::DayOfYear:
        break;
    }
    return newYear + days{day} + time;
}

std::optional<ZoneRule> ZoneRule::parse(std::string_view text)
{
    RuleReader reader{text};
    ZoneRule rule;
    // POSIX counts offsets west of Greenwich.
    if (!reader.takeName() || !reader.takeTime(24, rule.m_standardOffset)) return {};
    rule.m_standardOffset = -rule.m_standardOffset;
    if (reader.atEnd()) return rule;

    Summer summer;
    if (!reader.takeName()) return {};
    summer.offset = rule.m_standardOffset + hours{1};
    if (!reader.atDate()) {
        if (!reader.takeTime(24, summer.offset)) return {};
        summer.offset = -summer.offset;
    }
    if (!reader.take(',') || !reader.takeDate(summer.start)) return {};
    if (!reader.take(',') || !reader.takeDate(summer.end) || !reader.atEnd()) return {};
    rule.m_summer = summer;
    return rule;
}

void ZoneRule::appendTransitions(year first, int years, std::vector<ZoneTransition> &list) const
{
    if (!m_summer) return;
    for (int i = 0; i < years; ++i) {
        const year current = first + std::chrono::years{i};
        const auto start = m_summer->start.inYear(current).time_since_epoch() - m_standardOffset;
        const auto end = m_summer->end.inYear(current).time_since_epoch() - m_summer->offset;
        list.push_back({sys_seconds{start}, m_summer->offset});
        list.push_back({sys_seconds{end}, m_standardOffset});
    }
}
