#pragma once

#include "capture/KWSmartTimeModel.h"
#include "capture/ListNames.h"
#include "model/settings/KWSmartRecognitionConfiguration.h"
#include "model/settings/KWTaskDefaultConfiguration.h"

/// What recognition takes from the account: its settings and its lists.
struct RecognitionSettings {
    KWSmartTimeModel smartTimes;
    KWSmartRecognitionConfiguration recognition;
    KWTaskDefaultConfiguration defaults;
    ListNames lists;
};
