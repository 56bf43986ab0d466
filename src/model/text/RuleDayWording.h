#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

#include <QLocale>

/// The months, weeks and days of a rule in words, added to its frequency: "Every month" becomes "Every month
/// on the 13th if it is Friday". What makes days is told with "on", what limits them with "if".
class RuleDayWording {
public:
    /// Refers to both.
    RuleDayWording(const CXRecurrenceRule &rule, const QLocale &locale) : m_rule{rule}, m_locale{locale} {}

    QString addedTo(const QString &frequency);

private:
    void add(const char *pattern, const QString &value);
    bool addDayOfYear();
    void addMonths();
    void addWeeks();
    void addYearDays();
    void addMonthDays();
    void addWeekdays();
    void addWorkdays();

    // Whether the next part makes days rather than limits them; from then on, none does.
    bool takesMaking();
    bool isWorkdays() const;
    QStringList plainWeekdays(const char *pattern) const;
    QStringList numberedWeekdays() const;
    QString weekdayName(int weekday) const;

    const CXRecurrenceRule &m_rule;
    const QLocale &m_locale;
    QString m_text;
    bool m_hasDays = false;
};
