#include "capture/KWNativeParser.h"

#include "capture/LocaleDateFormat.h"
#include "capture/ReminderPhrase.h"
#include "corvexkit/time/TimeText.h"
#include "model/settings/ClockFormat.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "model/text/UnicodeText.h"
#include "nlp/NLPNativeTitleParser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

QJsonObject decoded(const std::wstring &answer)
{
    const QByteArray utf8 = QString::fromWCharArray(answer.data(), qsizetype(answer.size())).toUtf8();
    return QJsonDocument::fromJson(utf8).object();
}

// The midnight after `day`, which is not always 24 hours later.
Instant dayAfter(Instant date, const CXTimeZone &zone) { return zone.startOfDay(zone.dayOf(date) + days{1}); }

CXAlarmTrigger inDays(const CXAlarmTrigger &trigger)
{
    if (!trigger.isValid() || trigger.unit() != CXAlarmTrigger::Unit::Weeks) return trigger;
    return CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Days, trigger.value() * 7,
                                           trigger.remindTime());
}

std::set<CXAlarmTrigger> remindersFrom(const QJsonArray &representations, bool isAllDay,
                                       const QString &inputText, const KWTaskDefaultConfiguration &defaults)
{
    const bool isImplicit = representations.size() == 1 && representations.first() == "TRIGGER:-PT0S"_L1;
    if (isImplicit && !namesReminder(inputText))
        return isAllDay ? defaults.allDayReminders : defaults.reminders;

    std::set<CXAlarmTrigger> triggers;
    for (const QJsonValue &each : representations)
        triggers.insert(inDays(CXAlarmTrigger::triggerWithRepresentation(each.toString(), isAllDay)));
    return triggers;
}

/// The entities of a text by their place, to pass over them quickly.
class OccupiedRanges {
public:
    explicit OccupiedRanges(const TextEntities &entities)
    {
        for (const auto &each : entities)
            m_ranges.append(each->range());
        std::ranges::sort(m_ranges, {}, &TextRange::location);
        mergeOverlapping();
    }

    const TextRange *rangeMeeting(const TextRange &range) const
    {
        const auto after = std::ranges::upper_bound(m_ranges, range.end() - 1, {}, &TextRange::location);
        if (after == m_ranges.begin() || !std::prev(after)->intersects(range)) return nullptr;
        return &*std::prev(after);
    }

private:
    void mergeOverlapping()
    {
        QList<TextRange> merged;
        for (const TextRange &each : std::as_const(m_ranges)) {
            if (merged.isEmpty() || merged.last().end() <= each.location)
                merged.append(each);
            else
                merged.last().length = std::max(merged.last().end(), each.end()) - merged.last().location;
        }
        m_ranges = std::move(merged);
    }

    QList<TextRange> m_ranges; // disjoint, in text order
};

enum class Boundaries { Words, Any };

bool standsAtBoundaries(QStringView text, const TextRange &range, bool isChinese)
{
    const auto isBoundary = [&](qsizetype position) {
        if (isWordBoundary(text, position)) return true;
        return isChinese && (text[position - 1].unicode() >= 0x0800 || text[position].unicode() >= 0x0800);
    };
    return isBoundary(range.location) && isBoundary(range.end());
}

std::optional<TextRange> firstPlace(QStringView string, QStringView text, const OccupiedRanges &occupied,
                                    Qt::CaseSensitivity options, TextRange range, bool isChinese,
                                    Boundaries boundaries)
{
    const QStringView searched = text.first(range.end());
    qsizetype from = range.location;
    while ((from = searched.indexOf(string, from, options)) >= 0) {
        const TextRange found{from, string.size()};
        const TextRange *entity = occupied.rangeMeeting(found);
        if (!entity && (boundaries == Boundaries::Any || standsAtBoundaries(text, found, isChinese)))
            return found;
        from = entity ? std::max(entity->end(), from + 1) : from + 1;
    }
    return std::nullopt;
}

QList<std::shared_ptr<KWDateTextEntity>> phrasesIn(const QString &text, const QJsonArray &strings,
                                                   const TextEntities &tagTextEntities)
{
    const bool isChinese = KWNativeParser::isChineseInput(text);
    QList<std::shared_ptr<KWDateTextEntity>> entities;
    TextRange rest{0, text.size()};
    for (const QJsonValue &each : strings) {
        const QString string = each.toString();
        const auto range = KWNativeParser::fetchRangeForRecognizeString(string, text, tagTextEntities,
                                                                        Qt::CaseSensitive, rest, isChinese);
        if (!range) continue;
        entities.append(std::make_shared<KWDateTextEntity>(*range, string));
        rest = {range->end(), text.size() - range->end()};
    }
    return entities;
}

} // namespace

KWReminderModelFromNaturalLanguage KWNativeParser::parse(const QString &text, std::optional<Instant> baseDate,
                                                         int firstWeekday, minutes smartHourMorning,
                                                         minutes smartHourAfternoon, minutes smartHourEvening,
                                                         minutes smartHourNight, const QString &originalText,
                                                         const TextEntities &tagTextEntities,
                                                         const Surroundings &surroundings)
{
    if (text.isNull()) return {};
    const auto hour = [](minutes time) { return int(time / 1h); };
    const auto minute = [](minutes time) { return int((time % 1h).count()); };

    NLPNativeTitleParser parser;
    parser.setCustomizeHour(hour(smartHourMorning), minute(smartHourMorning), hour(smartHourAfternoon),
                            minute(smartHourAfternoon), hour(smartHourEvening), minute(smartHourEvening),
                            hour(smartHourNight), minute(smartHourNight));
    parser.setStartDay(firstWeekday);
    const LocaleDateFormat &format = LocaleDateFormat::current();
    parser.setIs24DateFormat(ClockFormat::chosen24Hour().value_or(format.is24Hour));
    // The library's flag stands for the month first.
    parser.setIsUsOrUkDateFormat(!format.isUSOrUK);

    const std::wstring base = stringFromDate(baseDate, surroundings.zone).toStdWString();
    const std::wstring answer = parser.parse(text.toStdWString(), base, true, format.languageCode);
    return parseDic(decoded(answer), text, originalText, tagTextEntities, surroundings);
}

KWReminderModelFromNaturalLanguage
KWNativeParser::parseDic(const QJsonObject &dictionary, const QString &inputText, const QString &originalText,
                         const TextEntities &tagTextEntities, const Surroundings &surroundings)
{
    KWReminderModelFromNaturalLanguage result;
    const CXTimeZone &zone = surroundings.zone;
    const std::optional<Instant> start = dateFromString(dictionary["startDate"_L1].toString(), zone);
    if (!start) return result;
    const bool isAllDay = dictionary["isAllDay"_L1].toBool();

    KWTaskDateTimeReminderModel &model = result.dateTimeReminderModel.emplace();
    model.startDateTime = KWDateTime::dateTimeWithDate(*start, !isAllDay);
    if (const std::optional<Instant> due = dateFromString(dictionary["dueDate"_L1].toString(), zone))
        model.endDateTime = KWDateTime::dateTimeWithDate(isAllDay ? dayAfter(*due, zone) : *due, !isAllDay);
    model.repeatRule = dictionary["repeatFlag"_L1].toString();
    if (!model.repeatRule.isEmpty()) model.repeatFrom = CXRecurrenceFromDefault;
    model.alarmTriggers =
        remindersFrom(dictionary["reminder"_L1].toArray(), isAllDay, inputText, surroundings.defaults);

    const QString &text = originalText.size() < inputText.size() ? inputText : originalText;
    result.recognizedStrings = phrasesIn(text, dictionary["recognizeStrings"_L1].toArray(), tagTextEntities);
    return result;
}

std::optional<TextRange> KWNativeParser::fetchRangeForRecognizeString(const QString &string,
                                                                      const QString &text,
                                                                      const TextEntities &tagTextEntities,
                                                                      Qt::CaseSensitivity options,
                                                                      TextRange range, bool isChinese)
{
    if (string.isEmpty()) return std::nullopt;
    const OccupiedRanges occupied{tagTextEntities};
    const TextRange searched = range.within(text.size());
    const auto atWords = firstPlace(string, text, occupied, options, searched, isChinese, Boundaries::Words);
    return atWords ? atWords
                   : firstPlace(string, text, occupied, options, searched, isChinese, Boundaries::Any);
}

bool KWNativeParser::isChineseInput(QStringView text)
{
    return std::ranges::any_of(text,
                               [](QChar unit) { return unit.unicode() >= 0x0800 && !unit.isSurrogate(); });
}

bool KWNativeParser::isUSOrUKDateFormat() { return LocaleDateFormat::current().isUSOrUK; }

std::optional<Instant> KWNativeParser::dateFromString(QStringView text, const CXTimeZone &zone)
{
    const std::optional<LocalTime> local = TimeText::toLocalTime(text);
    return local ? std::optional{zone.toInstant(*local)} : std::nullopt;
}

QString KWNativeParser::stringFromDate(std::optional<Instant> date, const CXTimeZone &zone)
{
    return date ? TimeText::fromLocalTime(zone.toLocal(*date), TimeText::Fraction::Never) : QString{};
}
