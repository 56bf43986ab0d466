#include "corvexkit/recurrence/RuleParser.h"

#include "corvexkit/recurrence/RuleTokens.h"
#include "corvexkit/recurrence/RuleWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

enum class RuleParser::Part : std::uint8_t {
    Freq,
    Until,
    Count,
    Interval,
    BySecond,
    ByMinute,
    ByHour,
    ByDay,
    ByMonthDay,
    ByYearDay,
    ByWeekNo,
    ByMonth,
    BySetPos,
    WkSt,
    RScale,
    Skip,
    Times,
};

namespace {

// In the order of RuleParser::Part.
constexpr std::array<std::string_view, 17> partNames{
    "FREQ",      "UNTIL",    "COUNT",   "INTERVAL", "BYSECOND", "BYMINUTE", "BYHOUR", "BYDAY",  "BYMONTHDAY",
    "BYYEARDAY", "BYWEEKNO", "BYMONTH", "BYSETPOS", "WKST",     "RSCALE",   "SKIP",   "X-TIMES"};

template <class Part>
QString nameOf(Part part)
{
    const std::string_view name = partNames[std::size_t(part)];
    return QString::fromLatin1(name.data(), qsizetype(name.size()));
}

template <std::size_t Size>
std::optional<std::size_t> indexOf(const RuleWord &word, const std::array<std::string_view, Size> &words)
{
    const auto found = std::ranges::find(words, word.view());
    return found == words.end() ? std::nullopt : std::optional{std::size_t(found - words.begin())};
}

QString quoted(QStringView text)
{
    constexpr qsizetype most = 40;
    return text.size() <= most ? u"“%1”"_s.arg(text) : u"“%1…”"_s.arg(text.first(most));
}

} // namespace

Result<CXRecurrenceRule> RuleParser::parse()
{
    QStringView rest = m_text.trimmed();
    if (rest.startsWith(u"RRULE:", Qt::CaseInsensitive)) rest = rest.sliced(6);
    while (!rest.isEmpty()) {
        const QStringView part = takeUntil(rest, u';').trimmed();
        if (!part.isEmpty() && !readPart(part)) return *m_error;
    }
    if (!checkWhole()) return *m_error;
    return m_rule;
}

bool RuleParser::readPart(QStringView part)
{
    QStringView value = part;
    const QStringView name = takeUntil(value, u'=').trimmed();
    const std::optional<std::size_t> index = indexOf(RuleWord{name}, partNames);
    if (!index) return fail(part, u"%1 is no part of a rule"_s.arg(quoted(name)));
    const Part read{std::uint8_t(*index)};
    if (has(read)) return fail(part, u"%1 is given twice"_s.arg(nameOf(read)));
    m_places[*index] = placeOf(part);
    value = value.trimmed();
    if (value.isEmpty()) return fail(part, u"%1 has no value"_s.arg(nameOf(read)));
    return readValue(read, value);
}

bool RuleParser::readValue(Part part, QStringView value)
{
    switch (part) {
    case Part::Freq:
        return readFrequency(value);
    case Part::Until:
        return readUntil(value);
    case Part::Count:
        return readCardinal(part, value, m_rule.count);
    case Part::Interval:
        return readCardinal(part, value, m_rule.interval);
    case Part::BySecond:
        return readNumbers(part, value, m_rule.bySecond);
    case Part::ByMinute:
        return readNumbers(part, value, m_rule.byMinute);
    case Part::ByHour:
        return readNumbers(part, value, m_rule.byHour);
    case Part::ByDay:
        return readWeekdays(value);
    case Part::ByMonthDay:
        return readNumbers(part, value, m_rule.byMonthDay);
    case Part::ByYearDay:
        return readNumbers(part, value, m_rule.byYearDay);
    case Part::ByWeekNo:
        return readNumbers(part, value, m_rule.byWeekNo);
    case Part::ByMonth:
        return readNumbers(part, value, m_rule.byMonth);
    case Part::BySetPos:
        return readNumbers(part, value, m_rule.bySetPos);
    case Part::WkSt:
        return readWeekStart(value);
    case Part::RScale:
        return readScale(value);
    case Part::Skip:
        return readSkip(value);
    case Part::Times:
        break;
    }
    return readTimesInWeekly(value);
}

bool RuleParser::readFrequency(QStringView value)
{
    const auto index = indexOf(RuleWord{value}, RuleWords::frequencies);
    if (!index) return fail(value, u"%1 is no frequency"_s.arg(quoted(value)));
    m_rule.frequency = CXRecurrenceRule::Frequency(*index);
    return true;
}

bool RuleParser::readUntil(QStringView value)
{
    m_rule.until = toUntil(value);
    return m_rule.until || fail(value, u"%1 is no date or time of the form 20300501, 20300501T090000 or "
                                       u"20300501T090000Z"_s.arg(quoted(value)));
}

bool RuleParser::readWeekStart(QStringView value)
{
    const auto index = indexOf(RuleWord{value}, RuleWords::weekdays);
    if (!index) return fail(value, u"%1 is no weekday"_s.arg(quoted(value)));
    m_rule.weekStart = weekday{unsigned(*index)};
    return true;
}

bool RuleParser::readScale(QStringView value)
{
    return RuleWord{value}.view() == "GREGORIAN" ||
           fail(value, u"only the Gregorian calendar is known, not %1"_s.arg(quoted(value)));
}

bool RuleParser::readSkip(QStringView value)
{
    const auto index = indexOf(RuleWord{value}, RuleWords::skips);
    if (!index) return fail(value, u"SKIP takes OMIT, BACKWARD or FORWARD, not %1"_s.arg(quoted(value)));
    m_rule.skip = CXRecurrenceRule::Skip(*index);
    return true;
}

bool RuleParser::readTimesInWeekly(QStringView value)
{
    m_rule.timesInWeekly = toNumber(value, Signs::Refused).value_or(0);
    return (m_rule.timesInWeekly >= 1 && m_rule.timesInWeekly <= 7) ||
           fail(value, u"X-TIMES takes 1 to 7, not %1"_s.arg(quoted(value)));
}

template <class Target>
bool RuleParser::readCardinal(Part part, QStringView value, Target &target)
{
    const std::optional<int> number = toNumber(value, Signs::Refused);
    if (!number || *number == 0)
        return fail(value, u"%1 takes 1 to 999999999, not %2"_s.arg(nameOf(part), quoted(value)));
    target = *number;
    return true;
}

template <class Set>
bool RuleParser::readNumbers(Part part, QStringView value, Set &numbers)
{
    for (bool more = true; more;) {
        more = value.contains(u',');
        const QStringView item = takeUntil(value, u',').trimmed();
        const auto number = toNumber(item, Set::hasNegatives ? Signs::Allowed : Signs::Refused);
        const int size = number && Set::hasNegatives ? std::abs(*number) : number.value_or(-1);
        if (size < Set::least || size > Set::most) {
            QString bounds = u"%1 to %2"_s.arg(Set::least).arg(Set::most);
            if (Set::hasNegatives) bounds += u" or -%2 to -%1"_s.arg(Set::least).arg(Set::most);
            return fail(item, u"%1 takes %2, not %3"_s.arg(nameOf(part), bounds, quoted(item)));
        }
        numbers.insert(*number);
    }
    return true;
}

bool RuleParser::readWeekdays(QStringView value)
{
    for (bool more = true; more;) {
        more = value.contains(u',');
        if (!readWeekday(takeUntil(value, u',').trimmed())) return false;
    }
    return true;
}

bool RuleParser::readWeekday(QStringView item)
{
    const auto index = indexOf(RuleWord{item.last(std::min<qsizetype>(item.size(), 2))}, RuleWords::weekdays);
    if (!index) return fail(item, u"%1 is no weekday"_s.arg(quoted(item)));
    const weekday day{unsigned(*index)};
    const QStringView text = item.chopped(2).trimmed();
    if (text.isEmpty()) {
        m_rule.byDay.insert(day);
        return true;
    }
    const std::optional<int> ordinal = toNumber(text, Signs::Allowed);
    using Ordinals = WeekdaySet::Ordinals;
    if (!ordinal || std::abs(*ordinal) < Ordinals::least || std::abs(*ordinal) > Ordinals::most)
        return fail(item, u"a weekday is counted with 1 to 53 or -53 to -1, not with %1"_s.arg(quoted(text)));
    m_rule.byDay.insert(day, *ordinal);
    return true;
}

bool RuleParser::checkWhole()
{
    using enum CXRecurrenceRule::Frequency;
    if (!has(Part::Freq)) return failAt(m_text.size() + 1, u"FREQ is missing"_s);
    const auto frequency = m_rule.frequency;
    const bool hasOrdinals = m_rule.byDay.hasOrdinals();
    const bool hasOther = std::any_of(m_places.begin() + int(Part::BySecond),
                                      m_places.begin() + int(Part::BySetPos), [](auto p) { return p != 0; });
    return refuse(std::max(
                      Part::Until, Part::Count,
                      [this](Part a, Part b) { return m_places[std::size_t(a)] < m_places[std::size_t(b)]; }),
                  m_rule.count && m_rule.until, u"COUNT and UNTIL exclude each other") &&
           refuse(Part::ByWeekNo, frequency != Yearly, u"BYWEEKNO needs FREQ=YEARLY") &&
           refuse(Part::ByYearDay, frequency == Daily || frequency == Weekly || frequency == Monthly,
                  u"BYYEARDAY does not go with days, weeks or months") &&
           refuse(Part::ByMonthDay, frequency == Weekly, u"BYMONTHDAY does not go with FREQ=WEEKLY") &&
           refuse(Part::ByDay, hasOrdinals && frequency < Monthly,
                  u"numbered weekdays need FREQ=MONTHLY or FREQ=YEARLY") &&
           refuse(Part::ByDay, hasOrdinals && has(Part::ByWeekNo),
                  u"numbered weekdays do not go with BYWEEKNO") &&
           refuse(Part::Times, frequency != Weekly, u"X-TIMES needs FREQ=WEEKLY") &&
           refuse(Part::BySetPos, !hasOther, u"BYSETPOS needs another part to choose from");
}

bool RuleParser::refuse(Part part, bool isWrong, const char16_t *reason)
{
    return !has(part) || !isWrong || failAt(m_places[std::size_t(part)], QString::fromUtf16(reason));
}

bool RuleParser::failAt(qsizetype place, const QString &reason)
{
    m_error = Error{u"The recurrence rule cannot be read at character %1: %2."_s.arg(place).arg(reason)};
    return false;
}
