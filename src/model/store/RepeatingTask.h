#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QList>
#include <QString>

#include <optional>

/// What of a repeating task says when it occurs. A plain value, read in bulk.
struct RepeatingTask {
    QString sid;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate;
    std::optional<Instant> completionDate;
    bool isAllDay = false;
    bool isFloating = false;
    QString repeatRule;
    CXRecurrenceFrom repeatFrom = CXRecurrenceFromDefault;
    QList<Instant> exDates;
    QString timeZone; ///< in which the dates were set
};
