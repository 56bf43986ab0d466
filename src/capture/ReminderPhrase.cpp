#include "capture/ReminderPhrase.h"

#include "nlp/NLPNativeTitleParser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The reminders of a title that is nothing but a date with them.
QJsonArray remindersOfTitle(const QString &title)
{
    const std::wstring answer =
        NLPNativeTitleParser{}.parse(title.toStdWString(), L"2030-01-01T00:00:00", false, L"zh");
    const QByteArray json = QString::fromWCharArray(answer.data(), qsizetype(answer.size())).toUtf8();
    const QJsonObject found = QJsonDocument::fromJson(json).object();
    const QJsonArray phrases = found.value("recognizeStrings"_L1).toArray();
    const bool isWhole = phrases.size() == 1 && phrases.first().toString() == title;
    return isWhole ? found.value("reminder"_L1).toArray() : QJsonArray{};
}

std::optional<CXAlarmTrigger> onAllDay(const CXAlarmTrigger &trigger)
{
    using enum CXAlarmTrigger::Unit;
    if (trigger.unit() != Days && trigger.unit() != Weeks) return std::nullopt;
    return CXAlarmTrigger::triggerWithUnit(trigger.unit(), trigger.value(), 9h);
}

// "3d" and "1 w" are no words of a title.
QString withUnitsAsWords(const QString &typed)
{
    static const QRegularExpression letter{uR"(^(\d{1,4})\s*([dw])$)"_s,
                                           QRegularExpression::CaseInsensitiveOption};
    const QRegularExpressionMatch found = letter.match(typed);
    if (!found.hasMatch()) return typed;
    return found.captured(1) + (found.captured(2).toLower() == u"d" ? u" days"_s : u" weeks"_s);
}

} // namespace

std::set<CXAlarmTrigger> remindersIn(const QString &typed, bool isAllDay)
{
    // A lead counts only beside a date and what asks for a reminder; words that say "before" may be left out.
    QJsonArray found;
    const QString words = withUnitsAsWords(typed.simplified());
    // Alone they could be a duration.
    for (const QString &title : {u"tomorrow 12:00 remind me %1 before"_s, u"tomorrow 12:00 remind me %1"_s,
                                 u"明天12:00提前%1提醒我"_s, u"明天12:00提醒我%1"_s})
        if (found.isEmpty()) found = remindersOfTitle(title.arg(words));
    std::set<CXAlarmTrigger> triggers;
    for (const QJsonValue &each : found) {
        std::optional trigger{CXAlarmTrigger::triggerWithRepresentation(each.toString(), false)};
        if (isAllDay) trigger = onAllDay(*trigger);
        if (!trigger || trigger->value() <= 0) return {};
        triggers.insert(*trigger);
    }
    return triggers;
}
