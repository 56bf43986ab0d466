#include "capture/RepeatPhrase.h"

#include "capture/KWSmartTimeModel.h"
#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;

Result<QString> repeatRuleIn(const QString &typed, Instant now, const KWSmartTimeModel &smartTimes,
                             const KWNativeParser::Surroundings &surroundings)
{
    QString text = typed.simplified();
    if (!text.contains(u"FREQ="_s, Qt::CaseInsensitive)) {
        const auto found = KWNativeParser::parse(text, now, smartTimes.firstWeekday, smartTimes.morning,
                                                 smartTimes.afternoon, smartTimes.evening, smartTimes.night,
                                                 text, {}, surroundings);
        text = found.dateTimeReminderModel ? found.dateTimeReminderModel->repeatRule : QString{};
    }
    if (text.isEmpty())
        return Error{KWLocalizedString("This is no rule to repeat by. Type one such as “every 2 weeks”.")};
    const Result<CXRecurrenceRule> rule = CXRecurrenceRule::parse(text);
    if (!rule) return rule.error();
    return rule->toIcal();
}
