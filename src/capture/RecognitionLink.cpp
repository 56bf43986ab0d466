#include "capture/RecognitionLink.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString linkOf(QLatin1StringView type, const QJsonValue &value)
{
    const QJsonObject link{{"type"_L1, type}, {"value"_L1, value}};
    return QString::fromUtf8(QJsonDocument{link}.toJson(QJsonDocument::Compact));
}

template <typename Value>
void setBlocked(QSet<Value> &blocked, const Value &value, bool isBlocked)
{
    isBlocked ? void(blocked.insert(value)) : void(blocked.remove(value));
}

bool setList(const QJsonValue &value, bool isBlocked, RecognitionOptions &options)
{
    if (value.toString().isEmpty()) return false;
    setBlocked(options.blockedProjects, value.toString(), isBlocked);
    return true;
}

bool setPriority(const QJsonValue &value, bool isBlocked, RecognitionOptions &options)
{
    const int number = value.toInt(-1);
    const auto priority = std::ranges::find(KWTaskPriorities, number);
    if (priority == KWTaskPriorities.end()) return false;
    setBlocked(options.blockedPriorities, *priority, isBlocked);
    return true;
}

} // namespace

QString recognitionLink(const RecognizedPiece &piece)
{
    switch (piece.type) {
    case RecognizedPieceType::Date:
        return linkOf("date"_L1, piece.value);
    case RecognizedPieceType::Assignee:
        return linkOf("assignee"_L1, piece.value);
    case RecognizedPieceType::List:
        return linkOf("project"_L1, piece.value);
    case RecognizedPieceType::Priority:
        return linkOf("priority"_L1, piece.value.toInt());
    case RecognizedPieceType::Tag:
        return {};
    }
    return {};
}

bool setRecognition(const QString &link, Recognition recognition, RecognitionOptions &options)
{
    const QJsonObject object = QJsonDocument::fromJson(link.toUtf8()).object();
    const QString type = object["type"_L1].toString();
    const QJsonValue value = object["value"_L1];
    const bool isBlocked = recognition == Recognition::Blocked;
    if (type == "project"_L1) return setList(value, isBlocked, options);
    if (type == "priority"_L1) return setPriority(value, isBlocked, options);
    const bool isDate = type == "date"_L1;
    if (!isDate && type != "assignee"_L1) return false;
    (isDate ? options.donotParseDate : options.donotParseAssignee) = isBlocked;
    return true;
}
