#include "focus/FocusJournalText.h"

#include "corvexkit/time/TimeText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QJsonArray arrayOf(const QList<FocusStretch> &stretches)
{
    QJsonArray array;
    for (const FocusStretch &each : stretches)
        array.append(QJsonObject{{u"start"_s, TimeText::fromInstant(each.startDate)},
                                 {u"end"_s, TimeText::fromInstant(each.endDate)},
                                 {u"target"_s, each.target.text()},
                                 {u"pause"_s, each.isPause}});
    return array;
}

std::optional<QList<FocusStretch>> stretchesOf(const QJsonArray &array)
{
    QList<FocusStretch> stretches;
    for (const QJsonValue &each : array) {
        const auto from = TimeText::toInstant(each[u"start"_s].toString());
        const auto to = TimeText::toInstant(each[u"end"_s].toString());
        if (!from || !to || *from > *to) return std::nullopt;
        stretches.append({.startDate = *from,
                          .endDate = *to,
                          .target = FocusTarget::fromText(each[u"target"_s].toString()),
                          .isPause = each[u"pause"_s].toBool()});
    }
    return stretches;
}

template <class Number>
std::optional<Number> numberOf(const QJsonValue &value, Number whenMissing)
{
    return value.isUndefined() ? std::optional{whenMissing} : valueOf<Number>(value.toInt(-1));
}

} // namespace

QString FocusJournalText::text(const FocusJournal::Session &session, Kind kind)
{
    const FocusRecord &record = session.record;
    QJsonObject json{{u"user"_s, session.userID},
                     {u"start"_s, TimeText::fromInstant(record.startDate)},
                     {u"stretches"_s, arrayOf(record.stretches)}};
    if (kind != Kind::Running) {
        json[u"end"_s] = TimeText::fromInstant(record.endDate);
        json[u"type"_s] = record.type;
        json[u"status"_s] = record.status;
    }
    if (kind == Kind::Left) json[u"left"_s] = true;
    return QString::fromUtf8(QJsonDocument{json}.toJson(QJsonDocument::Compact));
}

std::optional<FocusJournalText::Line> FocusJournalText::line(const QString &text)
{
    const QJsonObject json = QJsonDocument::fromJson(text.toUtf8()).object();
    const QString userID = json[u"user"_s].toString();
    const auto start = TimeText::toInstant(json[u"start"_s].toString());
    const auto stretches = stretchesOf(json[u"stretches"_s].toArray());
    const auto type = numberOf(json[u"type"_s], KWFocusTypePomo);
    const auto status = numberOf(json[u"status"_s], KWPomoStatusCompleted);
    if (userID.isEmpty() || !start || !stretches || !type || !status) return std::nullopt;
    const auto end = json.contains(u"end"_s) ? TimeText::toInstant(json[u"end"_s].toString())
                     : stretches->isEmpty()  ? *start
                                             : stretches->last().endDate;
    if (!end || *end < *start) return std::nullopt;
    return Line{.session = {.userID = userID,
                            .record = {.startDate = *start,
                                       .endDate = *end,
                                       .type = *type,
                                       .status = *status,
                                       .pauseDuration = pauseSecondsOf(*stretches),
                                       .stretches = *stretches}},
                .isLeft = json[u"left"_s].toBool()};
}
