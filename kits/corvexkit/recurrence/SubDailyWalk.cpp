#include "corvexkit/recurrence/SubDailyWalk.h"

#include <numeric>

using namespace std::chrono;

namespace {

constexpr std::uint64_t allBelow(int count) { return (std::uint64_t{1} << count) - 1; }

seconds stepUnit(CXRecurrenceRule::Frequency frequency)
{
    using Frequency = CXRecurrenceRule::Frequency;
    return frequency == Frequency::Hourly ? 1h : frequency == Frequency::Minutely ? seconds{1min} : 1s;
}

// A part limits where it is not below the frequency and is given at all.
std::uint64_t limits(bool applies, std::uint64_t bits, int count)
{
    return applies && bits != 0 ? bits : allBelow(count);
}

// The first number from `number` on that `bits` hold; `count` when there is none.
int nextIn(std::uint64_t bits, std::int64_t number, int count)
{
    const std::uint64_t left = bits >> number;
    return left == 0 ? count : int(number) + std::countr_zero(left);
}

seconds sinceMidnight(local_seconds moment) { return moment - floor<days>(moment); }

constexpr std::uint64_t zeroAlone = 1;

} // namespace

SubDailyWalk::SubDailyWalk(const CXRecurrenceRule &rule, local_seconds start)
    : m_filter{rule}
    , m_hours{limits(true, rule.byHour.bits(), 24)}
    , m_minutes{limits(rule.frequency != CXRecurrenceRule::Frequency::Hourly, rule.byMinute.bits(), 60)}
    , m_seconds{limits(rule.frequency == CXRecurrenceRule::Frequency::Secondly, rule.bySecond.bits(), 60)}
    , m_step{rule.interval * stepUnit(rule.frequency)}
    , m_start{start}
    , m_first{start - sinceMidnight(start) % stepUnit(rule.frequency)}
    , m_within{zeroAlone,
               rule.frequency == CXRecurrenceRule::Frequency::Hourly ? rule.byMinute.bits() : zeroAlone,
               rule.frequency == CXRecurrenceRule::Frequency::Secondly ? zeroAlone : rule.bySecond.bits()}
    , m_positions{rule.bySetPos}
    , m_isCounted{rule.count.has_value()}
{
}

std::optional<seconds> SubDailyWalk::evenStep() const
{
    const bool isLimited = !m_filter.isEmpty() || m_hours != allBelow(24) || m_minutes != allBelow(60) ||
                           m_seconds != allBelow(60) || !m_positions.isEmpty();
    if (isLimited || m_within.count() != 1 || m_first + m_within.first() != m_start) return {};
    return m_step;
}

void SubDailyWalk::run(OccurrenceCollector &collector)
{
    constexpr int patience = 10'000; // steps without an occurrence, before asking whether there is any
    if (!m_positions.isEmpty() && m_positions.among(m_within.count()).empty()) return;
    int fruitless = 0;
    std::int64_t step = 0;
    if (!m_isCounted) step = std::max<std::int64_t>(0, (collector.begin() - m_first) / m_step - 1);
    for (;;) {
        const local_seconds moment = m_first + step * m_step;
        if (moment > collector.end()) return;
        const local_seconds allowed = firstAllowed(moment);
        if (allowed == moment) {
            if (!takeStep(moment, collector)) return;
            fruitless = 0;
            ++step;
        } else {
            if (++fruitless == patience && !everReachesAllowedTime()) return;
            step = (allowed - m_first + m_step - 1s) / m_step;
        }
    }
}

bool SubDailyWalk::takeStep(local_seconds moment, OccurrenceCollector &collector)
{
    if (m_positions.isEmpty())
        return m_within.forEach([&](seconds time) { return collector.take(moment + time); });
    for (const int index : m_positions.among(m_within.count()))
        if (!collector.take(moment + m_within.at(index))) return false;
    return true;
}

// `moment`, or where the next stretch begins that the rule's limits do not rule out.
local_seconds SubDailyWalk::firstAllowed(local_seconds moment) const
{
    const Day day = floor<days>(moment);
    if (!m_filter.allows(day)) return day + days{1};
    const seconds time = moment - day;
    const hours hour = floor<hours>(time);
    const hours nextHour{nextIn(m_hours, hour.count(), 24)};
    if (nextHour != hour) return day + nextHour;
    const minutes minute = floor<minutes>(time - hour);
    const minutes nextMinute{nextIn(m_minutes, minute.count(), 60)};
    if (nextMinute != minute) return day + hour + nextMinute;
    const seconds second = time - hour - minute;
    return day + hour + minute + seconds{nextIn(m_seconds, second.count(), 60)};
}

bool SubDailyWalk::allowsTime(seconds time) const
{
    const auto isIn = [](std::uint64_t bits, std::int64_t number) { return ((bits >> number) & 1) != 0; };
    return isIn(m_hours, time / 1h) && isIn(m_minutes, time % 1h / 1min) && isIn(m_seconds, time % 1min / 1s);
}

// Over the days the steps meet every time of day that is a multiple of this away from the start's.
bool SubDailyWalk::everReachesAllowedTime() const
{
    const seconds grid{std::gcd(m_step.count(), seconds{24h}.count())};
    for (seconds time = sinceMidnight(m_first) % grid; time < 24h; time += grid)
        if (allowsTime(time)) return true;
    return false;
}
