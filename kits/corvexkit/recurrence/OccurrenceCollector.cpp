#include "corvexkit/recurrence/OccurrenceCollector.h"

using namespace std::chrono;

namespace {

// More than any zone ever moved its clocks: over the date line.
constexpr days longestShift{2};

} // namespace

OccurrenceCollector::OccurrenceCollector(const CXRecurringObject &object, const CXRecurrenceRule &rule,
                                         const Range &range)
    : m_object{object}, m_range{range}
{
    const LocalTime start = object.timeZone.toLocal(*object.startDate);
    m_start = object.isAllDay ? local_seconds{floor<days>(start)} : floor<seconds>(start);
    m_fraction = object.isAllDay ? milliseconds{0} : start - m_start;
    m_last = m_start;
    if (rule.count) m_left = *rule.count - 1;
    m_end = local_seconds::max();
    // Starts in the second half of a fold may have earlier readings after them.
    m_range.from = std::max(range.from, *object.startDate + milliseconds{1});
    if (rule.until) boundByUntil(*rule.until);
    boundLocally();
}

void OccurrenceCollector::boundByUntil(const CXRecurrenceRule::Until &until)
{
    if (const Day *day = std::get_if<Day>(&until))
        m_end = local_seconds{*day} + days{1} - seconds{1};
    else if (const auto *local = std::get_if<LocalTime>(&until))
        m_end = floor<seconds>(*local - m_fraction);
    else
        m_range.to = std::min(m_range.to, std::get<Instant>(until));
}

// What is read on the clock at the range's ends. A reading may be moved forward into the range by a gap,
// or a whole day's start by one around midnight.
void OccurrenceCollector::boundLocally()
{
    const CXTimeZone &zone = m_object.timeZone;
    const days margin = m_object.isAllDay ? longestShift : days{0};
    const seconds least = std::min(zone.offsetAt(m_range.from - longestShift), zone.offsetAt(m_range.from));
    const seconds most = std::max(zone.offsetAt(m_range.to - longestShift), zone.offsetAt(m_range.to));
    m_begin = local_seconds{floor<seconds>(m_range.from.time_since_epoch() - m_fraction + least - margin)};
    m_end = std::min(
        m_end, local_seconds{floor<seconds>(m_range.to.time_since_epoch() - m_fraction + most + margin)});
}

bool OccurrenceCollector::takeStart()
{
    const Instant start = *m_object.startDate;
    if (!m_object.excludes(start)) m_instants.push_back(start);
    return m_instants.size() < m_range.limit;
}

void OccurrenceCollector::expect(std::int64_t count)
{
    constexpr std::int64_t most = 4096; // an estimate is no reason to take megabytes
    const auto limit = std::int64_t(std::min<std::size_t>(m_range.limit, most));
    m_instants.reserve(m_instants.size() + std::size_t(std::clamp<std::int64_t>(count, 0, limit)));
}

std::vector<Instant> OccurrenceCollector::instants() &&
{
    if (m_instants.size() > m_range.limit) m_instants.resize(m_range.limit);
    return std::move(m_instants);
}

// In a gap or a fold, or in another stretch than the last.
bool OccurrenceCollector::keepUnsettled(local_seconds local)
{
    if (const auto stretch = m_object.timeZone.stretchAround(local)) {
        m_stretchBegin = floor<seconds>(stretch->begin);
        m_stretchEnd = floor<seconds>(stretch->end);
        m_offset = stretch->offset;
        return keep(local);
    }
    const CXTimeZone::Resolution resolved = m_object.timeZone.resolve(local);
    if (resolved.kind == CXTimeZone::Resolution::Kind::Fold) return add(resolved.before + m_fraction);
    add(m_object.isAllDay ? *resolved.transition : resolved.before + m_fraction);
    return true;
}

bool OccurrenceCollector::add(Instant instant)
{
    if (instant >= m_range.from && instant <= m_range.to && !m_object.excludes(instant)) {
        if (m_instants.empty() || m_instants.back() < instant) {
            m_instants.push_back(instant);
        } else {
            const auto place = std::lower_bound(m_instants.begin(), m_instants.end(), instant);
            if (*place != instant) m_instants.insert(place, instant);
        }
    }
    return !isEnough(instant);
}
