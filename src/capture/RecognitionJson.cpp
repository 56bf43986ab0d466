#include "capture/RecognitionJson.h"

#include "corvexkit/time/TimeText.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(RecognizedPieceType type)
{
    switch (type) {
    case RecognizedPieceType::Date:
        return u"date"_s;
    case RecognizedPieceType::Tag:
        return u"tag"_s;
    case RecognizedPieceType::Priority:
        return u"priority"_s;
    case RecognizedPieceType::List:
        return u"list"_s;
    case RecognizedPieceType::Assignee:
        return u"assignee"_s;
    }
    return {};
}

QJsonValue timeOf(const std::optional<KWDateTime> &dateTime, const CXTimeZone &zone)
{
    if (!dateTime) return QJsonValue::Null;
    return TimeText::fromLocalTime(zone.toLocal(dateTime->date), TimeText::Fraction::Never);
}

QJsonValue dateOf(const std::optional<KWTaskDateTimeReminderModel> &model, const CXTimeZone &zone)
{
    if (!model) return QJsonValue::Null;
    QJsonArray reminders;
    for (const CXAlarmTrigger &each : model->alarmTriggers)
        reminders.append(each.representation());
    return QJsonObject{
        {u"start"_s, timeOf(model->startDateTime, zone)},
        {u"end"_s, timeOf(model->endDateTime, zone)},
        {u"isAllDay"_s, model->isAllDay()},
        {u"repeatRule"_s, model->repeatRule},
        {u"repeatFrom"_s, model->repeatRule.isEmpty() ? QString{} : QString{textOf(model->repeatFrom)}},
        {u"reminders"_s, reminders},
    };
}

QJsonArray piecesOf(const QList<RecognizedPiece> &pieces)
{
    QJsonArray array;
    for (const RecognizedPiece &each : pieces)
        array.append(QJsonObject{{u"type"_s, nameOf(each.type)},
                                 {u"location"_s, each.location},
                                 {u"length"_s, each.length},
                                 {u"text"_s, each.text}});
    return array;
}

} // namespace

QJsonObject dryRunObject(const TitleRecognition &recognition, const CXTimeZone &zone)
{
    const auto &list = recognition.parsedProjectResult;
    const auto &assignee = recognition.assignedTeamworker;
    return {
        {u"title"_s, recognition.title},
        {u"tags"_s, QJsonArray::fromStringList(recognition.tags)},
        {u"priority"_s, recognition.priority.value_or(KWTaskPriorityNone)},
        {u"list"_s, list ? QJsonValue{list->name} : QJsonValue{QJsonValue::Null}},
        {u"assignee"_s, assignee ? QJsonValue{assignee->name} : QJsonValue{QJsonValue::Null}},
        {u"date"_s, dateOf(recognition.date.dateTimeReminderModel, zone)},
        {u"recognized"_s, piecesOf(recognition.pieces)},
    };
}
