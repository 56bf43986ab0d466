#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include "corvexkit/recurrence/RuleParser.h"
#include "corvexkit/recurrence/RuleWords.h"
#include "corvexkit/time/TimeText.h"

#include <algorithm>
#include <bit>

using namespace Qt::StringLiterals;

namespace {

QLatin1StringView latin1(std::string_view word) { return {word.data(), qsizetype(word.size())}; }

template <class Set>
void appendNumbers(QString &text, QLatin1StringView name, const Set &numbers)
{
    QChar separator = u'=';
    numbers.forEach([&](int number) {
        if (separator == u'=') text.append(u';').append(name);
        text += separator;
        text += QString::number(number);
        separator = u',';
    });
}

void appendWeekdays(QString &text, const WeekdaySet &days)
{
    QString separator = u";BYDAY="_s;
    const auto append = [&](const QString &ordinal, int day) {
        text += separator + ordinal + latin1(RuleWords::weekdays[std::size_t(day)]);
        separator = u","_s;
    };
    for (int i = 1; i <= 7; ++i) { // from Monday on
        const int day = i % 7;
        if (days.every().contains(day)) append({}, day);
        days.ordinals(day).forEach([&](int ordinal) { append(QString::number(ordinal), day); });
    }
}

// The basic format of ISO 8601 from the extended one.
QString basic(QString text) { return text.remove(u'-').remove(u':'); }

QString untilText(const CXRecurrenceRule::Until &until)
{
    if (const Day *day = std::get_if<Day>(&until)) return basic(TimeText::fromDay(*day));
    constexpr auto fraction = TimeText::Fraction::Never;
    if (const auto *local = std::get_if<LocalTime>(&until))
        return basic(TimeText::fromLocalTime(*local, fraction));
    return basic(TimeText::fromInstant(std::get<Instant>(until), fraction));
}

} // namespace

Result<CXRecurrenceRule> CXRecurrenceRule::parse(QStringView text) { return RuleParser{text}.parse(); }

QString CXRecurrenceRule::toIcal() const
{
    QString text = u"RRULE:FREQ="_s + latin1(RuleWords::frequencies[std::size_t(frequency)]);
    text += u";INTERVAL="_s + QString::number(interval);
    if (count) text += u";COUNT="_s + QString::number(*count);
    if (until) text += u";UNTIL="_s + untilText(*until);
    appendNumbers(text, "BYMONTH"_L1, byMonth);
    appendNumbers(text, "BYWEEKNO"_L1, byWeekNo);
    appendNumbers(text, "BYYEARDAY"_L1, byYearDay);
    appendNumbers(text, "BYMONTHDAY"_L1, byMonthDay);
    appendWeekdays(text, byDay);
    appendNumbers(text, "BYHOUR"_L1, byHour);
    appendNumbers(text, "BYMINUTE"_L1, byMinute);
    appendNumbers(text, "BYSECOND"_L1, bySecond);
    appendNumbers(text, "BYSETPOS"_L1, bySetPos);
    if (weekStart) text += u";WKST="_s + latin1(RuleWords::weekdays[weekStart->c_encoding()]);
    if (timesInWeekly > 0) text += u";X-TIMES="_s + QString::number(timesInWeekly);
    if (skip != Skip::Omit)
        text += u";RSCALE=GREGORIAN;SKIP="_s + latin1(RuleWords::skips[std::size_t(skip)]);
    return text;
}

std::int64_t CXRecurrenceRule::mostOccurrencesOnADay() const
{
    const auto times = [this](const auto &chosen, Frequency every, int all) -> std::int64_t {
        if (!chosen.isEmpty()) return std::popcount(chosen.bits());
        if (frequency > every) return 1;
        // Only what the frequency itself counts is thinned by the interval.
        return frequency == every ? (all - 1) / interval + 1 : all;
    };
    std::int64_t most = times(bySecond, Frequency::Secondly, 60) * times(byMinute, Frequency::Minutely, 60) *
                        times(byHour, Frequency::Hourly, 24);
    if (frequency == Frequency::Secondly) most = std::min<std::int64_t>(most, (86'400 - 1) / interval + 1);
    if (frequency == Frequency::Minutely && bySecond.isEmpty())
        most = std::min<std::int64_t>(most, (1'440 - 1) / interval + 1);
    return count ? std::min<std::int64_t>(most, *count) : most;
}
