#pragma once

#include "capture/RecognitionOptions.h"
#include "corvexkit/time/Instant.h"
#include "model/records/KWTaskDateTimeReminderModel.h"

#include <QStringList>

#include <optional>

/// What decides about a new task besides its typed text.
struct NewTaskContext {
    // What the view implies.
    std::optional<QString> presetList; ///< id
    std::optional<Day> presetDay;
    bool presetsNoDate = false; ///< the view shows what has no date
    std::optional<KWTaskPriority> presetPriority;
    QStringList presetTagNames;          ///< labels or names
    std::optional<QString> presetColumn; ///< id; of `presetList`
    std::optional<std::int64_t> presetAssignee;
    bool isNotedFilter = false; ///< the view shows notes only

    // What was chosen by hand.
    std::optional<QString> manualList; ///< id
    std::optional<KWTaskPriority> manualPriority;
    std::optional<KWTaskDateTimeReminderModel> manualDate;

    RecognitionOptions recognition;
};
