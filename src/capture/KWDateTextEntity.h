#pragma once

#include "capture/KWTextEntity.h"

/// A date phrase of a typed text.
class KWDateTextEntity : public KWTextEntity {
public:
    KWDateTextEntity(TextRange range, QString text) : KWTextEntity(range, std::move(text), Date) {}
};
