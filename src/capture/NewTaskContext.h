#pragma once

#include "capture/RecognitionOptions.h"
#include "corvexkit/time/Instant.h"

#include <QStringList>

#include <optional>

/// What decides about a new task besides its typed text and the hand.
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

    RecognitionOptions recognition;
};
