#pragma once

#include "capture/KWReminderModelFromNaturalLanguage.h"
#include "capture/KWTagTextEntity.h"
#include "corvexkit/time/CXTimeZone.h"

#include <QStringView>

#include <chrono>
#include <optional>

class QJsonObject;
struct KWTaskDefaultConfiguration;

/// Hands titles to the date library and makes of its answer what a task needs. Formats are those of
/// the default locale, but for a chosen ClockFormat. Main thread only.
class KWNativeParser {
public:
    /// What an answer is read with.
    struct Surroundings {
        CXTimeZone zone;                            ///< in which the texts and the answer's times are local
        const KWTaskDefaultConfiguration &defaults; ///< whose reminders a date with a time gets
    };

    /// Reads `text`. `baseDate` is what "tomorrow" is counted from; without one nothing is found. The
    /// smart hours are times since midnight. Phrases are located in `originalText`, outside of the
    /// pieces already recognised in it. A text without a date gives an empty answer.
    static KWReminderModelFromNaturalLanguage
    parse(const QString &text, std::optional<Instant> baseDate, int firstWeekday,
          std::chrono::minutes smartHourMorning, std::chrono::minutes smartHourAfternoon,
          std::chrono::minutes smartHourEvening, std::chrono::minutes smartHourNight,
          const QString &originalText, const TextEntities &tagTextEntities, const Surroundings &surroundings);

    /// Makes the answer from the library's JSON object; see NLPNativeTitleParser for its keys.
    static KWReminderModelFromNaturalLanguage parseDic(const QJsonObject &dictionary,
                                                       const QString &inputText, const QString &originalText,
                                                       const TextEntities &tagTextEntities,
                                                       const Surroundings &surroundings);

    /// Where `string` stands in the part `range` of `text`, outside of the entities: the first place where
    /// it begins and ends at word boundaries, else the first of all. In Chinese text every character may
    /// begin and end a word. Nothing when it stands nowhere.
    static std::optional<TextRange> fetchRangeForRecognizeString(const QString &string, const QString &text,
                                                                 const TextEntities &tagTextEntities,
                                                                 Qt::CaseSensitivity options, TextRange range,
                                                                 bool isChinese);

    /// Coarse on purpose: whether a unit of the text, taken alone, has three bytes in UTF-8.
    static bool isChineseInput(QStringView text);

    /// Whether the locale writes the day before the month, or the month as a word.
    static bool isUSOrUKDateFormat();

    /// The time stamps exchanged with the library: "yyyy-MM-ddTHH:mm:ss", local to `zone`. Nothing for an
    /// empty or malformed text; an empty text for no instant.
    static std::optional<Instant> dateFromString(QStringView text, const CXTimeZone &zone);
    static QString stringFromDate(std::optional<Instant> date, const CXTimeZone &zone);
};
