#include "focus/FocusTally.h"

#include "focus/FocusLimits.h"
#include "model/store/FocusRows.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

FocusDayTally::FocusDayTally(FocusDays range, CXTimeZone zone)
    : m_range(range)
    , m_zone(std::move(zone))
    , m_from(m_zone.startOfDay(range.first))
    , m_to(m_zone.startOfDay(range.end))
    , m_lengths((range.end - range.first).count())
    , m_pomos(m_lengths.size())
{
}

void FocusDayTally::add(const FocusRow &row)
{
    Instant from = std::max(row.startDate, m_from);
    const Instant to = std::min(row.endDate, m_to);
    Day day = std::max(m_zone.dayOf(from), m_range.first);
    while (from < to && day < m_range.end) {
        const Instant midnight = m_zone.startOfDay(day + std::chrono::days{1});
        if (midnight > from) {
            m_lengths[(day - m_range.first).count()] += std::min(midnight, to) - from;
            from = midnight;
        }
        day += std::chrono::days{1};
    }
}

void FocusDayTally::addPomo(Instant start)
{
    const Day day = m_zone.dayOf(start);
    if (m_range.contains(day)) ++m_pomos[(day - m_range.first).count()];
}

milliseconds FocusDayTally::lengthInRange(const FocusRow &row) const
{
    return std::max(std::min(row.endDate, m_to) - std::max(row.startDate, m_from), milliseconds{0});
}

QList<FocusDay> FocusDayTally::days() const
{
    QList<FocusDay> days;
    for (qsizetype i = 0; i < m_lengths.size(); ++i)
        days.append({.day = m_range.first + std::chrono::days{i},
                     .focused = round<seconds>(m_lengths[i]),
                     .pomos = m_pomos[i]});
    return days;
}

void FocusShareTally::add(const FocusShare &share, milliseconds length, milliseconds inPeriod)
{
    const QString &own = share.id.isEmpty() ? share.name : share.id;
    const QString key = u"%1:%2:%3"_s.arg(int(share.kind)).arg(share.id.isEmpty()).arg(own);
    const auto place = m_places.constFind(key);
    const qsizetype index = place == m_places.cend() ? m_sums.size() : *place;
    if (place == m_places.cend()) {
        m_places.insert(key, index);
        m_sums.append({.share = share});
    }
    m_sums[index].ofSession += length;
    m_sums[index].inPeriod += inPeriod;
}

void FocusShareTally::endSession(bool isPomo)
{
    for (Sum &each : m_sums) {
        if (isPomo && each.ofSession >= FocusLimits::minimumFocus) ++each.share.pomos;
        each.ofSession = {};
    }
}

QList<FocusShare> FocusShareTally::shares() const
{
    QList<FocusShare> shares;
    for (const Sum &each : m_sums) {
        shares.append(each.share);
        shares.last().focused = round<seconds>(each.inPeriod);
    }
    std::ranges::stable_sort(shares, [](const FocusShare &one, const FocusShare &other) {
        if (one.focused != other.focused) return one.focused > other.focused;
        return QString::localeAwareCompare(one.name, other.name) < 0;
    });
    return shares;
}
