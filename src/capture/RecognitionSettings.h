#pragma once

#include "capture/KWSmartTimeModel.h"
#include "capture/NameIndex.h"
#include "model/settings/KWSmartRecognitionConfiguration.h"
#include "model/settings/KWTaskDefaultConfiguration.h"

#include <QHash>

/// What recognition takes from the account: its settings, its lists and the people who share them.
struct RecognitionSettings {
    KWSmartTimeModel smartTimes;
    KWSmartRecognitionConfiguration recognition;
    KWTaskDefaultConfiguration defaults;
    NameIndex lists;
    QHash<QString, NameIndex> members{}; ///< of the shared lists, by list id
};
