#pragma once

#include "corvexkit/Result.h"

#include <QStringList>

#include <functional>

/// What `text` says of each, in their order, parted by spaces: `joined(rows, &KWTaskListItemModel::title)`.
template <class Range, class Text>
QString joined(const Range &range, Text &&text)
{
    QStringList texts;
    for (const auto &each : range)
        texts << std::invoke(text, each);
    return texts.join(u' ');
}

/// Whether it failed with a sentence in which `part` is found.
template <class Value>
bool isRefused(const Result<Value> &result, QStringView part = u".")
{
    return !result && result.error().sentence.endsWith(u'.') && result.error().sentence.contains(part);
}
