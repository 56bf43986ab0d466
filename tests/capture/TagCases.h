#pragma once

#include "capture/KWTagTextEntity.h"
#include "support/CaseText.h"

/// The tags of a text at the ranges that a cell names.
inline TagTextEntities tagsAt(const QString &cell, const QString &text)
{
    TagTextEntities tags;
    for (const TextRange &each : rangesOf(cell))
        tags.append(std::make_shared<KWTagTextEntity>(each, text.mid(each.location, each.length)));
    return tags;
}
