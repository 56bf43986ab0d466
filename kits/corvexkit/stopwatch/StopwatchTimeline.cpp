#include "corvexkit/stopwatch/StopwatchTimeline.h"

#include "corvexkit/time/TimeText.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace Corvex::Focus {

namespace {

QJsonObject segmentToJson(const StopwatchSegment &segment)
{
    QJsonObject json{{u"kind"_s, segment.isRunning() ? u"running"_s : u"paused"_s},
                     {u"start"_s, TimeText::fromInstant(segment.startDate)}};
    if (segment.endDate) json.insert(u"end"_s, TimeText::fromInstant(*segment.endDate));
    if (!segment.object.isEmpty()) json.insert(u"object"_s, segment.object);
    return json;
}

std::optional<StopwatchSegment> segmentFromJson(const QJsonObject &json)
{
    const QString kind = json.value(u"kind"_s).toString();
    const auto start = TimeText::toInstant(json.value(u"start"_s).toString());
    const auto end = TimeText::toInstant(json.value(u"end"_s).toString());
    const QJsonValue object = json.value(u"object"_s);
    const bool isKind = kind == u"running" || kind == u"paused";
    const bool isText = object.isUndefined() || object.isString();
    if (!isKind || !start || !isText || json.contains(u"end"_s) != end.has_value()) return std::nullopt;
    return StopwatchSegment{kind == u"running" ? StopwatchSegment::Kind::Running
                                               : StopwatchSegment::Kind::Paused,
                            *start, end, object.toString()};
}

} // namespace

milliseconds StopwatchSegment::duration(Instant now) const
{
    const Instant end = endDate.value_or(now);
    return end > startDate ? end - startDate : 0ms;
}

const StopwatchSegment *StopwatchTimeline::open() const
{
    return isEmpty() || m_segments.back().endDate ? nullptr : &m_segments.back();
}

std::optional<Instant> StopwatchTimeline::startDate() const
{
    return isEmpty() ? std::nullopt : std::optional{m_segments.front().startDate};
}

std::optional<Instant> StopwatchTimeline::endDate() const
{
    return isEmpty() ? std::nullopt : m_segments.back().endDate;
}

void StopwatchTimeline::begin(StopwatchSegment::Kind kind, const QString &object, Instant date)
{
    end(date);
    if (!isEmpty()) date = std::max(date, *m_segments.back().endDate);
    m_segments.push_back({kind, date, std::nullopt, object});
}

void StopwatchTimeline::end(Instant date)
{
    if (!open()) return;
    StopwatchSegment &last = m_segments.back();
    if (date > last.startDate)
        last.endDate = date;
    else
        m_segments.pop_back();
}

milliseconds StopwatchTimeline::sum(StopwatchSegment::Kind kind, Instant now) const
{
    milliseconds sum{0};
    for (const StopwatchSegment &each : m_segments)
        if (each.kind == kind) sum += each.duration(now);
    return sum;
}

milliseconds StopwatchTimeline::cumulativeRunningDuration(Instant now) const
{
    return sum(StopwatchSegment::Kind::Running, now);
}

milliseconds StopwatchTimeline::pausedDuration(Instant now) const
{
    return sum(StopwatchSegment::Kind::Paused, now);
}

void StopwatchTimeline::cut(milliseconds duration)
{
    if (cumulativeRunningDuration() <= duration) return;
    milliseconds left = std::max(duration, 0ms);
    auto behind = m_segments.begin();
    for (; left > 0ms; ++behind) {
        if (!behind->isRunning()) continue;
        const milliseconds kept = std::min(left, *behind->endDate - behind->startDate);
        behind->endDate = behind->startDate + kept;
        left -= kept;
    }
    m_segments.erase(behind, m_segments.end());
}

QJsonObject StopwatchTimeline::toJson() const
{
    QJsonArray segments;
    for (const StopwatchSegment &each : m_segments)
        segments.append(segmentToJson(each));
    return {{u"segments"_s, segments}};
}

Result<StopwatchTimeline> StopwatchTimeline::fromJson(const QJsonObject &json)
{
    const QJsonValue segments = json.value(u"segments"_s);
    if (!segments.isArray()) return Error{u"A timeline has no segments."_s};
    StopwatchTimeline timeline;
    for (const QJsonValue &each : segments.toArray()) {
        const auto segment = segmentFromJson(each.toObject());
        if (!segment) return Error{u"A segment of a timeline cannot be read."_s};
        const bool follows =
            timeline.isEmpty() || (timeline.endDate() && *timeline.endDate() <= segment->startDate);
        const bool hasLength = !segment->endDate || *segment->endDate > segment->startDate;
        if (!follows || !hasLength) return Error{u"The segments of a timeline do not follow each other."_s};
        timeline.m_segments.push_back(*segment);
    }
    return timeline;
}

} // namespace Corvex::Focus
