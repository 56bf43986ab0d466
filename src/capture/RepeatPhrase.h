#pragma once

#include "capture/KWNativeParser.h"
#include "corvexkit/Result.h"

struct KWSmartTimeModel;

/// The rule that a typed text means, in its canonical form: a recurrence rule of RFC 5545, or words such as
/// "every 2 weeks" that a title may hold. An error says what is wrong. Main thread.
Result<QString> repeatRuleIn(const QString &typed, Instant now, const KWSmartTimeModel &smartTimes,
                             const KWNativeParser::Surroundings &surroundings);
