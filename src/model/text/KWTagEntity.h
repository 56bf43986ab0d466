#pragma once

#include "model/text/TextRange.h"

/// A tag in a text, its mark included.
struct KWTagEntity {
    TextRange range;
};
