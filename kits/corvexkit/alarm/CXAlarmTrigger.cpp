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
    explicit DurationReader(QStringView text) : text_{text} {}

    std::optional<Duration> read()
    {
        const bool negative = take(u'-');
        if (!negative) take(u'+');
        if (!take(u'P')) return {};
        Duration duration;
        if (!readParts(duration) || !text_.isEmpty()) return {};
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
        for (bool first = true; first || !text_.isEmpty(); first = false) {
            const std::optional<int> number = takeNumber();
            if (!number) return false;
            while (first && part != parts.end() && !text_.startsWith(part->first, Qt::CaseInsensitive))
                ++part;
            if (part == parts.end() || !take(part->first)) return false;
            duration.exact += *number * part->second;
            ++part;
        }
        return true;
    }

    bool take(char16_t letter)
    {
        if (!text_.startsWith(QChar{letter}, Qt::CaseInsensitive)) return false;
        text_ = text_.mid(1);
        return true;
    }

    std::optional<int> takeNumber()
    {
        int number = 0;
        qsizetype length = 0;
        for (; length < text_.size() && text_[length] >= u'0' && text_[length] <= u'9'; ++length) {
            if (length == 9) return {};
            number = number * 10 + (text_[length].unicode() - u'0');
        }
        text_ = text_.mid(length);
        return length > 0 ? std::optional{number} : std::nullopt;
    }

    QStringView text_;
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
    : days_{calendarDays}, time_{time}, unit_{Unit::Days}, isAllDay_{kind == Kind::AllDay}
{
    if (!isAllDay_ && (time != 0s || calendarDays == days{0}))
        unit_ = unitOf(time);
    else if (calendarUnit == Unit::Weeks && calendarDays != days{0})
        unit_ = Unit::Weeks;
}

CXAlarmTrigger CXAlarmTrigger::triggerWithRepresentation(const QString &text, bool isAllDay)
{
    const std::optional<Duration> duration = durationOfLine(text);
    if (!duration) {
        CXAlarmTrigger invalid;
        invalid.unit_ = Unit::Seconds;
        invalid.invalidText_ = text.isNull() ? u""_s : text;
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
    if (!isValid()) return invalidText_;
    const seconds total = days_ + time_;
    const QString opening = total < 0s ? u"TRIGGER:-P"_s : u"TRIGGER:P"_s;
    if (isAllDay_) return opening + allDayText(total);
    if (unit_ == Unit::Weeks) return opening + number(days_, days{7}) + u'W';
    const QString calendarText = days_ == days{0} ? QString{} : number(days_, days{1}) + u'D';
    if (total == 0s) return opening + u"T0S"_s;
    return opening + calendarText + (time_ == 0s ? QString{} : u'T' + exactText(time_));
}

int CXAlarmTrigger::value() const
{
    const seconds length = isAllDay_ ? seconds{days_} : days_ + time_;
    return int(-length / lengthOf(unit_));
}

std::optional<seconds> CXAlarmTrigger::remindTime() const
{
    return isAllDay_ ? std::optional{time_} : std::nullopt;
}

std::optional<Instant> CXAlarmTrigger::fireInstant(Instant start, bool isAllDay, const CXTimeZone &zone) const
{
    if (!isValid()) return {};
    if (isAllDay) {
        const Day day = zone.dayOf(start) + days_;
        return isAllDay_ ? zone.toInstant(LocalTime{day} + time_) : zone.startOfDay(day) + time_;
    }
    // A start in the repeated hour keeps which of the two it is.
    const Instant moved = days_ == days{0} ? start : zone.toInstant(zone.toLocal(start) + days_);
    return moved + time_;
}

std::strong_ordering CXAlarmTrigger::operator<=>(const CXAlarmTrigger &other) const
{
    const auto key = [](const CXAlarmTrigger &trigger) {
        const seconds total = trigger.days_ + trigger.time_;
        return std::tuple{total.count(), trigger.days_.count(), int(trigger.unit_), trigger.isAllDay_};
    };
    if (const auto order = key(*this) <=> key(other); order != 0) return order;
    if (isValid() != other.isValid())
        return isValid() ? std::strong_ordering::less : std::strong_ordering::greater;
    return invalidText_.compare(other.invalidText_) <=> 0;
}

size_t qHash(const CXAlarmTrigger &trigger, size_t seed)
{
    return qHashMulti(seed, trigger.days_.count(), trigger.time_.count(), int(trigger.unit_),
                      trigger.isAllDay_, trigger.invalidText_);
}
