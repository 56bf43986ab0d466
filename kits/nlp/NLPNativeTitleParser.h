#pragma once

#include "nlp/Settings.h"

#include <string>

/// Finds the date, time, repeat and reminder phrases in a task's title. docs/quick-add.md lists what is
/// read, and how.
///
/// A wide string holds one code point a unit. An instance may be used by several threads as long as
/// nobody changes its settings; what the languages need is made on first use and shared.
class NLPNativeTitleParser {
public:
    /// The times that parts of the day stand for when no clock time is given. A pair outside 0–23 and 0–59
    /// leaves that part as it was.
    void setCustomizeHour(int morningHour, int morningMinute, int afternoonHour, int afternoonMinute,
                          int eveningHour, int eveningMinute, int nightHour, int nightMinute);

    /// The day on which weeks begin: 1 = Sunday … 7 = Saturday. Other values are ignored.
    void setStartDay(int firstWeekday);

    /// True: a written time such as "5:30" is read on a clock of 24 hours.
    void setIs24DateFormat(bool is24DateFormat);

    /// True: the month comes first in a date such as "10/11".
    void setIsUsOrUkDateFormat(bool isMonthFirst);

    /// Reads `text`, written at `baseDate` (local time, "yyyy-MM-ddTHH:mm:ss"), in the language of the
    /// code `language` ("zh", "en_GB") and in English. Without a valid base date nothing is found.
    ///
    /// The answer is a JSON object (RFC 8259):
    /// - "startDate", "dueDate": local times as `baseDate`, or empty. No start: nothing was found. The due
    ///   date of an all-day date is its last day.
    /// - "isAllDay": true when no time of day was named; the times are midnight then.
    /// - "repeatFlag": "RRULE:" and a rule of RFC 5545, section 3.3.10, or empty.
    /// - "recognizeStrings": the phrases used, as they stand in the text, in its order; neighbours are one.
    /// - "reminder": triggers of RFC 5545, section 3.8.6.3. With `marksImplicitReminder`, a date with a
    ///   time for which the text names no reminder has "TRIGGER:-PT0S" alone.
    ///
    /// No phrase reaches across U+FFFC, into quotation marks, links or mail addresses. Any text is
    /// answered, in time proportional to its length.
    std::wstring parse(const std::wstring &text, const std::wstring &baseDate, bool marksImplicitReminder,
                       const std::wstring &language) const;

private:
    nlp::Settings m_settings;
};
