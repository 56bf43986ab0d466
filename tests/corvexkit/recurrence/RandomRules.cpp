#include "RandomRules.h"

#include "corvexkit/time/TimeText.h"

#include <QStringList>

using namespace Qt::StringLiterals;
using namespace std::chrono;

QString RandomRules::rule()
{
    static const QStringList frequencies{u"DAILY"_s,  u"WEEKLY"_s,   u"MONTHLY"_s, u"YEARLY"_s,
                                         u"HOURLY"_s, u"MINUTELY"_s, u"SECONDLY"_s};
    const int frequency = number(0, m_kinds == Kinds::All ? 6 : 3);
    const bool isWeekly = frequency == 1, isYearly = frequency == 3, isShort = frequency > 3;
    const bool hasWeeks = isYearly && chance(20);
    QStringList parts{u"FREQ="_s + frequencies[frequency],
                      u"WKST="_s + QStringList{u"MO"_s, u"SU"_s, u"WE"_s, u"SA"_s}[number(0, 3)]};
    const auto add = [&](const char *name, const QString &value) {
        parts.append(QString::fromLatin1(name) + u'=' + value);
    };
    if (chance(60)) add("INTERVAL", QString::number(number(1, isShort ? 2000 : 7)));
    const qsizetype before = parts.size();
    const bool hasMonths = chance(30);
    if (hasMonths) add("BYMONTH", list(4, [this] { return number(1, 12); }));
    if (hasWeeks) add("BYWEEKNO", list(4, [this] { return signedNumber(53); }));
    if ((isYearly || isShort) && chance(15)) add("BYYEARDAY", list(20, [this] { return signedNumber(366); }));
    if (!isWeekly && chance(30)) add("BYMONTHDAY", list(5, [this] { return signedNumber(31); }));
    const bool countsWeekdays = (frequency == 2 || isYearly) && !hasWeeks;
    if (chance(40)) add("BYDAY", weekdays(!countsWeekdays ? 0 : isYearly && !hasMonths ? 53 : 5));
    if (chance(20)) add("BYHOUR", list(3, [this] { return number(0, 23); }));
    if (chance(15)) add("BYMINUTE", list(3, [this] { return number(0, 59); }));
    if (chance(10)) add("BYSECOND", list(3, [this] { return number(0, 59); }));
    if (parts.size() > before && chance(25)) add("BYSETPOS", list(3, [this] { return signedNumber(8); }));
    std::shuffle(parts.begin(), parts.end(), m_random);
    return parts.join(u';');
}

QString RandomRules::usualRule()
{
    const QString interval = chance(25) ? u";INTERVAL=%1"_s.arg(number(2, 6)) : QString{};
    switch (number(0, 9)) {
    case 0:
        return u"FREQ=DAILY"_s + interval;
    case 1:
        return u"FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR"_s;
    case 2:
        return u"FREQ=YEARLY"_s + interval;
    case 3:
        return u"FREQ=YEARLY;BYMONTH=%1;BYDAY=%2%3"_s.arg(number(1, 12))
            .arg(signedNumber(4))
            .arg(weekdays(0).first(2));
    case 4:
        return u"FREQ=MONTHLY;BYMONTHDAY=%1"_s.arg(list(2, [this] { return signedNumber(31); })) + interval;
    case 5:
        return u"FREQ=MONTHLY;BYDAY="_s + weekdays(5) + interval;
    case 6:
        return u"FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=%1"_s.arg(signedNumber(5)) + interval;
    case 7:
        return u"FREQ=WEEKLY"_s + interval;
    default:
        return u"FREQ=WEEKLY;BYDAY="_s + weekdays(0) + interval + (chance(50) ? u";WKST=SU"_s : QString{});
    }
}

QString RandomRules::end(LocalTime start)
{
    if (chance(50)) return {};
    if (chance(40)) return u";COUNT=%1"_s.arg(number(1, 60));
    const LocalTime last = start + days{number(0, 1500)} + minutes{15 * number(0, 95)};
    const QString text = TimeText::fromLocalTime(last).remove(u'-').remove(u':');
    return u";UNTIL="_s + (chance(40) ? text.first(8) : text);
}

LocalTime RandomRules::start()
{
    return Day{2024y / 1 / 1} + days{number(0, 12 * 365)} + minutes{15 * number(0, 95)};
}

template <class Next>
QString RandomRules::list(int longest, Next next)
{
    QStringList numbers;
    for (int i = number(1, longest); i > 0; --i)
        numbers.append(QString::number(next()));
    return numbers.join(u',');
}

QString RandomRules::weekdays(int ordinals)
{
    static const QStringList names{u"MO"_s, u"TU"_s, u"WE"_s, u"TH"_s, u"FR"_s, u"SA"_s, u"SU"_s};
    QStringList days;
    for (int i = number(1, 4); i > 0; --i) {
        const QString ordinal =
            ordinals > 0 && chance(60) ? QString::number(signedNumber(ordinals)) : QString{};
        days.append(ordinal + names[number(0, 6)]);
    }
    return days.join(u',');
}
