#include "corvexkit/stopwatch/StopwatchSession.h"

#include "corvexkit/time/TimeText.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace Corvex::Focus {

QString StopwatchSession::toText() const
{
    QJsonArray unsettled;
    for (const StopwatchTimeline &each : stopped)
        unsettled.append(each.toJson());
    const QJsonObject json{{u"timeline"_s, timeline.toJson()},
                           {u"object"_s, object},
                           {u"date"_s, TimeText::fromInstant(date)},
                           {u"wallClock"_s, TimeText::fromInstant(wallClock)},
                           {u"stopped"_s, unsettled}};
    return QString::fromUtf8(QJsonDocument{json}.toJson());
}

Result<StopwatchSession> StopwatchSession::fromText(const QString &text)
{
    const QJsonObject json = QJsonDocument::fromJson(text.toUtf8()).object();
    const auto date = TimeText::toInstant(json.value(u"date"_s).toString());
    const auto wallClock = TimeText::toInstant(json.value(u"wallClock"_s).toString());
    if (!date || !wallClock) return Error{u"The time of the timing cannot be read."_s};
    StopwatchSession session;
    session.object = json.value(u"object"_s).toString();
    session.date = *date;
    session.wallClock = *wallClock;
    auto timeline = StopwatchTimeline::fromJson(json.value(u"timeline"_s).toObject());
    if (!timeline) return timeline.error();
    // A timing under way has an open segment, which began before it was last seen.
    const StopwatchSegment *open = timeline->open();
    if (!timeline->isEmpty() && (!open || open->startDate > *date))
        return Error{u"The timing has no segment under way."_s};
    session.timeline = *std::move(timeline);
    for (const QJsonValue &each : json.value(u"stopped"_s).toArray()) {
        auto stopped = StopwatchTimeline::fromJson(each.toObject());
        if (!stopped) return stopped.error();
        if (!stopped->endDate()) return Error{u"A stopped timing is open."_s};
        session.stopped.push_back(*std::move(stopped));
    }
    return session;
}

} // namespace Corvex::Focus
