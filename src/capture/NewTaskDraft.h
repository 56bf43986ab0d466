#pragma once

#include "capture/TitleRecognition.h"
#include "model/records/KWTaskModel.h"

/// A task before it is saved.
struct NewTaskDraft {
    KWTaskModel task;
    QStringList tagLabels;              ///< of its tags; those the account lacks are made with it
    std::optional<QString> newListName; ///< the list made with it; its `projectID` is set then
    TitleRecognition recognition;
};
