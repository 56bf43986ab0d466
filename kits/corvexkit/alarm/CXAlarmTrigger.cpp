#include "corvexkit/alarm/CXAlarmTrigger.h"

#include <QHashFunctions>
#include <QList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <tuple>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

using Unit = CXAlarmTrigger::Unit;

constexpr seconds defaultRemindTime = 9h;

// So that value() holds every trigger in every unit: 68 years.
constexpr seconds longest{std::numeric_limits<int>::max()};

// A duration as it is written, its sign applied.
struct Duration {
    days calendarDays{0};
    seconds exact{0};
    bool inWeeks = false;
    bool namesDays = false;
    bool namesTime = false;
};

// RFC 5545 section 3.3.6.
class DurationReader {
public:
    explicit DurationReader(QStringView text) : m_text{text} {}

    std::optional<Duration> read()
    {
        const bool negative = take(u'-');
        if (!negative) take(u'+');
        if (!take(u'P')) return {};
        Duration duration;
        if (!readParts(duration) || !m_text.isEmpty()) return {};
        if (negative) {
            duration.calendarDays = -duration.calendarDays;
            duration.exact = -duration.exact;
        }
        return duration;
    }

private:
    bool readParts(Duration &duration)
    {
        if (take(u'T')) return readTime(duration);
        const std::optional<int> number = takeNumber();
        if (!number) return false;
        duration.namesDays = true;
        if (take(u'W')) {
            duration.inWeeks = true;
            duration.calendarDays = days{std::int64_t{*number} * 7};
            return true;
        }
        if (!take(u'D')) return false;
        duration.calendarDays = days{*number};
        return !take(u'T') || readTime(duration);
    }

    // Hours, minutes and seconds in this order, without holes.
    bool readTime(Duration &duration)
    {
        duration.namesTime = true;
        constexpr std::array parts{std::pair{u'H', seconds{1h}}, std::pair{u'M', seconds{1min}},
                                   std::pair{u'S', seconds{1s}}};
        auto part = parts.begin();
        for (bool first = true; first || !m_text.isEmpty(); first = false) {
            const std::optional<int> number = takeNumber();
            if (!number) return false;
            while (first && part != parts.end() && !m_text.startsWith(part->first, Qt::CaseInsensitive))
                ++part;
            if (part == parts.end() || !take(part->first)) return false;
            duration.exact += *number * part->second;
            ++part;
        }
        return true;
    }

    bool take(char16_t letter)
    {
        if (!m_text.startsWith(QChar{letter}, Qt::CaseInsensitive)) return false;
        m_text = m_text.mid(1);
        return true;
    }

    std::optional<int> takeNumber()
    {
        int number = 0;
        qsizetype length = 0;
        for (; length < m_text.size() && m_text[length] >= u'0' && m_text[length] <= u'9'; ++length) {
            if (length == 9) return {};
            number = number * 10 + (m_text[length].unicode() - u'0');
        }
        m_text = m_text.mid(length);
        return length > 0 ? std::optional{number} : std::nullopt;
    }

    QStringView m_text;
};

bool countsFromStart(QStringView parameter)
{
    const auto is = [parameter](QStringView text) {
        return parameter.compare(text, Qt::CaseInsensitive) == 0;
    };
    return is(u"RELATED=START") || is(u"VALUE=DURATION") || parameter.startsWith(u"X-", Qt::CaseInsensitive);
}

// The duration of a TRIGGER line that counts from the start.
std::optional<Duration> durationOfLine(QStringView line)
{
    const qsizetype colon = line.indexOf(u':');
    if (colon < 0) return {};
    const QList<QStringView> names = line.first(colon).split(u';');
    if (names.first().compare(u"TRIGGER", Qt::CaseInsensitive) != 0) return {};
    if (!std::all_of(names.begin() + 1, names.end(), countsFromStart)) return {};
    const std::optional<Duration> duration = DurationReader{line.mid(colon + 1)}.read();
    if (!duration || abs(duration->calendarDays + duration->exact) > longest) return {};
    return duration;
}

seconds lengthOf(Unit unit)
{
    switch (unit) {
    case Unit::Weeks:
        return days{7};
    case Unit::Days:
        return days{1};
    case Unit::Hours:
        return 1h;
    case Unit::Minutes:
        return 1min;
    case Unit::Seconds:
        break;
    }
    return 1s;
}

// The unit of a time that is no whole number of days: zero counts as minutes.
Unit unitOf(seconds exact)
{
    if (exact == 0s) return Unit::Minutes;
    return exact % 1h == 0s ? Unit::Hours : exact % 1min == 0s ? Unit::Minutes : Unit::Seconds;
}

QString number(seconds length, seconds unit) { return QString::number(abs(length) / unit); }

// "2H", "90M" or "10S".
QString exactText(seconds exact)
{
    const Unit unit = unitOf(exact);
    const QChar letter = unit == Unit::Hours ? u'H' : unit == Unit::Minutes ? u'M' : u'S';
    return number(exact, lengthOf(unit)) + letter;
}

QString allDayText(seconds fromMidnight)
{
    return number(fromMidnight, 24h) + u"DT"_s + number(fromMidnight % 24h, 1h) + u'H' +
           number(fromMidnight % 1h, 1min) + u'M' + number(fromMidnight % 1min, 1s) + u'S';
}

} // namespace

CXAlarmTrigger::CXAlarmTrigger(days calendarDays, seconds time, Unit calendarUnit, Kind kind)
    : m_days{calendarDays}, m_time{time}, m_unit{Unit::Days}, m_isAllDay{kind == Kind::AllDay}
{
    if (!m_isAllDay && (time != 0s || calendarDays == days{0}))
        m_unit = unitOf(time);
    else if (calendarUnit == Unit::Weeks && calendarDays != days{0})
        m_unit = Unit::Weeks;
}

CXAlarmTrigger CXAlarmTrigger::triggerWithRepresentation(const QString &text, bool isAllDay)
{
    const std::optional<Duration> duration = durationOfLine(text);
    if (!duration) {
        CXAlarmTrigger invalid;
        invalid.m_unit = Unit::Seconds;
        invalid.m_invalidText = text.isNull() ? u""_s : text;
        return invalid;
    }
    const auto unit = duration->inWeeks ? Unit::Weeks : Unit::Days;
    if (!isAllDay) return {duration->calendarDays, duration->exact, unit, Kind::Timed};

    const bool namesTime = duration->namesTime && (duration->namesDays || duration->exact != 0s);
    if (!namesTime) return {duration->calendarDays, defaultRemindTime, unit, Kind::AllDay};
    const seconds fromMidnight = duration->calendarDays + duration->exact;
    const days day = floor<days>(fromMidnight);
    return {day, fromMidnight - day, unit, Kind::AllDay};
}

CXAlarmTrigger CXAlarmTrigger::triggerWithUnit(Unit unit, int value, std::optional<seconds> remindTime)
{
    const std::int64_t most = longest / lengthOf(unit);
    const seconds length = -std::clamp<std::int64_t>(value, -most, most) * lengthOf(unit);
    const bool inDays = unit == Unit::Weeks || unit == Unit::Days;
    if (!inDays) return {days{0}, length, unit, Kind::Timed};
    const days calendarDays = duration_cast<days>(length);
    if (!remindTime) return {calendarDays, 0s, unit, Kind::Timed};
    return {calendarDays, std::clamp<seconds>(*remindTime, 0s, 24h - 1s), unit, Kind::AllDay};
}

CXAlarmTrigger CXAlarmTrigger::onTime_AllDay()
{
    return {days{0}, defaultRemindTime, Unit::Days, Kind::AllDay};
}

QString CXAlarmTrigger::representation() const
{
    if (!isValid()) return m_invalidText;
    const seconds total = m_days + m_time;
    const QString opening = total < 0s ? u"TRIGGER:-P"_s : u"TRIGGER:P"_s;
    if (m_isAllDay) return opening + allDayText(total);
    if (m_unit == Unit::Weeks) return opening + number(m_days, days{7}) + u'W';
    const QString calendarText = m_days == days{0} ? QString{} : number(m_days, days{1}) + u'D';
    if (total == 0s) return opening + u"T0S"_s;
    return opening + calendarText + (m_time == 0s ? QString{} : u'T' + exactText(m_time));
}

int CXAlarmTrigger::value() const
{
    const seconds length = m_isAllDay ? seconds{m_days} : m_days + m_time;
    return int(-length / lengthOf(m_unit));
}

std::optional<seconds> CXAlarmTrigger::remindTime() const
{
    return m_isAllDay ? std::optional{m_time} : std::nullopt;
}

std::optional<Instant> CXAlarmTrigger::fireInstant(Instant start, bool isAllDay, const CXTimeZone &zone) const
{
    if (!isValid()) return {};
    if (isAllDay) {
        const Day day = zone.dayOf(start) + m_days;
        return m_isAllDay ? zone.toInstant(LocalTime{day} + m_time) : zone.startOfDay(day) + m_time;
    }
    // A start in the repeated hour keeps which of the two it is.
    const Instant moved = m_days == days{0} ? start : zone.toInstant(zone.toLocal(start) + m_days);
    return moved + m_time;
}

std::strong_ordering CXAlarmTrigger::operator<=>(const CXAlarmTrigger &other) const
{
    const auto key = [](const CXAlarmTrigger &trigger) {
        const seconds total = trigger.m_days + trigger.m_time;
        return std::tuple{total.count(), trigger.m_days.count(), int(trigger.m_unit), trigger.m_isAllDay};
    };
    if (const auto order = key(*this) <=> key(other); order != 0) return order;
    if (isValid() != other.isValid())
        return isValid() ? std::strong_ordering::less : std::strong_ordering::greater;
    return m_invalidText.compare(other.m_invalidText) <=> 0;
}

size_t qHash(const CXAlarmTrigger &trigger, size_t seed)
{
    return qHashMulti(seed, trigger.m_days.count(), trigger.m_time.count(), int(trigger.m_unit),
                      trigger.m_isAllDay, trigger.m_invalidText);
}
