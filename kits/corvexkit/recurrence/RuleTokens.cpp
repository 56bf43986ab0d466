#include "corvexkit/recurrence/RuleTokens.h"

using namespace std::chrono;

QStringView takeUntil(QStringView &text, QChar separator)
{
    const qsizetype end = text.indexOf(separator);
    const QStringView taken = end < 0 ? text : text.first(end);
    text = end < 0 ? text.last(0) : text.sliced(end + 1);
    return taken;
}

std::optional<int> toNumber(QStringView text, Signs signs)
{
    int sign = 1;
    if (signs == Signs::Allowed && (text.startsWith(u'-') || text.startsWith(u'+'))) {
        sign = text.front() == u'-' ? -1 : 1;
        text = text.sliced(1);
    }
    if (text.isEmpty() || text.size() > 9) return {};
    int number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') return {};
        number = number * 10 + (c.unicode() - u'0');
    }
    return sign * number;
}

namespace {

std::optional<Day> toBasicDay(QStringView text)
{
    const auto number = toNumber(text, Signs::Refused);
    if (text.size() != 8 || !number) return {};
    const year_month_day date{year{*number / 10'000}, month{unsigned(*number / 100 % 100)},
                              day{unsigned(*number % 100)}};
    return date.ok() ? std::optional{Day{date}} : std::nullopt;
}

std::optional<seconds> toBasicTime(QStringView text)
{
    const auto number = toNumber(text, Signs::Refused);
    if (text.size() != 6 || !number) return {};
    const hours hour{*number / 10'000};
    const minutes minute{*number / 100 % 100};
    const seconds second{*number % 100};
    if (hour >= 24h || minute >= 60min || second > 60s) return {};
    return hour + minute + std::min(second, 59s); // RFC 5545 section 3.3.12: no leap seconds here
}

} // namespace

std::optional<CXRecurrenceRule::Until> toUntil(QStringView text)
{
    const std::optional<Day> day = toBasicDay(text.first(std::min<qsizetype>(text.size(), 8)));
    if (!day) return {};
    if (text.size() == 8) return CXRecurrenceRule::Until{*day};
    const bool isUtc = text.endsWith(u'Z', Qt::CaseInsensitive);
    if (isUtc) text.chop(1);
    if (text.size() != 15 || text[8].toUpper() != u'T') return {};
    const std::optional<seconds> time = toBasicTime(text.sliced(9));
    if (!time) return {};
    const LocalTime local = *day + *time;
    if (!isUtc) return CXRecurrenceRule::Until{local};
    return CXRecurrenceRule::Until{Instant{local.time_since_epoch()}};
}
