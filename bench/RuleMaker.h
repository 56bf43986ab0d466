#pragma once

#include "corvexkit/time/Instant.h"

#include <QStringList>

#include <algorithm>
#include <random>

/// Rules as people have them, the same ones at every run: of a hundred, 40 daily, 30 weekly on two or three
/// days, 15 on a day of the month, 10 on a weekday of it, 5 yearly.
class RuleMaker {
public:
    QString mixed()
    {
        const int share = below(100);
        if (share < 40) return daily();
        if (share < 70) return weekly();
        if (share < 85) return QStringLiteral("FREQ=MONTHLY;BYMONTHDAY=%1").arg(below(31) + 1);
        if (share < 95) return QStringLiteral("FREQ=MONTHLY;BYDAY=%1%2").arg(nth(), weekdays(1));
        return QStringLiteral("FREQ=YEARLY");
    }
    QString daily() { return QStringLiteral("FREQ=DAILY;INTERVAL=%1").arg(below(5) + 1); }
    QString weekly() { return QStringLiteral("FREQ=WEEKLY;BYDAY=%1").arg(weekdays(2 + below(2))); }

    /// A quarter of an hour within three years.
    LocalTime start()
    {
        return LocalTime{Day{std::chrono::year{2028} / 1 / 1}} + std::chrono::days{below(3 * 365)} +
               std::chrono::minutes{15 * below(96)};
    }

private:
    int below(int end) { return std::uniform_int_distribution{0, end - 1}(m_random); }
    QString nth() { return QString::number(below(5) == 0 ? -1 : below(4) + 1); }
    QString weekdays(int count)
    {
        QStringList names = QStringLiteral("MO TU WE TH FR SA SU").split(u' ');
        std::shuffle(names.begin(), names.end(), m_random);
        return names.mid(0, count).join(u',');
    }

    std::mt19937 m_random{1};
};
