#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "corvexkit/time/CXTimeZone.h"

#include <QLocale>

/// Recurrence rules in words.
namespace RuleWording {

/// "Every 2 weeks on Monday and Thursday until 3 May 2031": all that the rule says. What it leaves to its
/// start is not said. An end that is an instant is read in `zone`. Main thread.
QString words(const CXRecurrenceRule &rule, const CXTimeZone &zone, const QLocale &locale);

} // namespace RuleWording
