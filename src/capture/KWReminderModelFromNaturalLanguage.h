#pragma once

#include "capture/KWDateTextEntity.h"
#include "model/records/KWTaskDateTimeReminderModel.h"

#include <optional>

/// What a title says about time.
struct KWReminderModelFromNaturalLanguage {
    std::optional<KWTaskDateTimeReminderModel> dateTimeReminderModel; ///< nothing: no date was found
    QList<std::shared_ptr<KWDateTextEntity>> recognizedStrings;       ///< the phrases, in text order
};
