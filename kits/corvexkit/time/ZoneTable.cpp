#include "corvexkit/time/ZoneTable.h"

#include "corvexkit/time/ZoneFile.h"

#include <algorithm>
#include <limits>

using namespace std::chrono;

namespace {

// After 400 years of the Gregorian calendar, dates fall on the same weekdays again.
constexpr int cycleYears = 400;
constexpr std::int64_t cycleSeconds = seconds{days{146'097}}.count();

std::vector<ZoneTransition> continued(std::vector<ZoneTransition> transitions, const ZoneRule &rule)
{
    constexpr year firstYear{1900};
    const sys_seconds last = transitions.empty() ? sys_seconds::min() : transitions.back().at;
    const year from = transitions.empty() ? firstYear : year_month_day{floor<days>(last)}.year();
    std::vector<ZoneTransition> ruled;
    rule.appendTransitions(from, cycleYears + 3, ruled);
    // Some rules touch the turn of the year, where the end of one summer meets the start of the next.
    std::ranges::stable_sort(ruled, {}, &ZoneTransition::at);
    std::ranges::copy_if(ruled, std::back_inserter(transitions),
                         [last](const auto &t) { return t.at > last; });
    return transitions;
}

} // namespace

ZoneTable::ZoneTable(QString identifier, seconds offset)
    : ZoneTable{std::move(identifier), offset, {}, std::nullopt}
{
}

ZoneTable::ZoneTable(QString identifier, seconds firstOffset, std::vector<ZoneTransition> transitions,
                     const std::optional<ZoneRule> &rule)
    : m_identifier{std::move(identifier)}
    , m_offsets{std::int32_t(firstOffset.count())}
    , m_repeatsAfter{std::numeric_limits<std::int64_t>::max()}
{
    const bool goesOn = rule && rule->hasSummerTime();
    if (goesOn) transitions = continued(std::move(transitions), *rule);
    for (std::size_t i = 0; i < transitions.size(); ++i) {
        const bool replacedAtOnce = i + 1 < transitions.size() && transitions[i + 1].at == transitions[i].at;
        if (!replacedAtOnce) append(transitions[i]);
    }
    constexpr std::int64_t margin = seconds{days{2}}.count(); // more than any offset
    if (goesOn && !m_starts.empty()) m_repeatsAfter = m_starts.back() - margin;
}

void ZoneTable::append(const ZoneTransition &transition)
{
    const auto offset = std::int32_t(transition.offset.count());
    if (offset == m_offsets.back()) return; // another name for the same time
    const std::int64_t start = transition.at.time_since_epoch().count();
    m_starts.push_back(start);
    m_localStarts.push_back(start + std::min(offset, m_offsets.back()));
    m_offsets.push_back(offset);
}

std::unique_ptr<ZoneTable> ZoneTable::fromFile(QString identifier, std::string_view bytes)
{
    std::optional<ZoneFile> file = ZoneFile::parse(bytes);
    if (!file) return nullptr;
    return std::make_unique<ZoneTable>(std::move(identifier), file->firstOffset, std::move(file->transitions),
                                       ZoneRule::parse(file->rule));
}

std::int64_t ZoneTable::withinTable(std::int64_t second) const
{
    if (second <= m_repeatsAfter) return second;
    const std::int64_t cycles = (second - m_repeatsAfter + cycleSeconds - 1) / cycleSeconds;
    return second - cycles * cycleSeconds;
}

seconds ZoneTable::offsetAt(Instant instant) const
{
    const std::int64_t second = withinTable(floor<seconds>(instant.time_since_epoch()).count());
    return seconds{m_offsets[std::size_t(std::ranges::upper_bound(m_starts, second) - m_starts.begin())]};
}

CXTimeZone::Resolution ZoneTable::resolve(LocalTime local) const
{
    using Kind = CXTimeZone::Resolution::Kind;
    const std::int64_t given = floor<seconds>(local.time_since_epoch()).count();
    const std::int64_t second = withinTable(given);
    const auto passed = std::size_t(std::ranges::upper_bound(m_localStarts, second) - m_localStarts.begin());
    const seconds offset{m_offsets[passed]};
    const auto read = [local](seconds with) { return Instant{local.time_since_epoch() - with}; };
    if (passed > 0 && second < settledAfter(passed - 1)) {
        const seconds earlier{m_offsets[passed - 1]};
        const Instant transition{seconds{m_starts[passed - 1] + (given - second)}};
        return {offset > earlier ? Kind::Gap : Kind::Fold, read(earlier), read(offset), transition};
    }
    return {Kind::Unique, read(offset), read(offset), std::nullopt};
}

std::optional<CXTimeZone::Stretch> ZoneTable::stretchAround(LocalTime local) const
{
    const std::int64_t given = floor<seconds>(local.time_since_epoch()).count();
    const std::int64_t second = withinTable(given);
    const auto passed = std::size_t(std::ranges::upper_bound(m_localStarts, second) - m_localStarts.begin());
    const seconds shift{given - second};
    CXTimeZone::Stretch stretch{LocalTime::min(), LocalTime::max(), seconds{m_offsets[passed]}};
    if (passed > 0) {
        const std::int64_t begin = settledAfter(passed - 1);
        if (second < begin) return {};
        stretch.begin = LocalTime{seconds{begin} + shift};
    }
    if (passed < m_localStarts.size()) stretch.end = LocalTime{seconds{m_localStarts[passed]} + shift};
    return stretch;
}
