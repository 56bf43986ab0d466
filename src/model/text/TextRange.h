#pragma once

#include <QtGlobal>

#include <algorithm>

/// A run of characters, in UTF-16 units.
struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;

    qsizetype end() const { return location + length; }
    bool isEmpty() const { return length <= 0; }
    bool contains(qsizetype position) const { return position >= location && position < end(); }
    bool intersects(const TextRange &other) const { return location < other.end() && other.location < end(); }
    /// The part of it that lies in a text of `size` units.
    TextRange within(qsizetype size) const
    {
        const qsizetype from = std::clamp<qsizetype>(location, 0, size);
        return {from, std::clamp<qsizetype>(end(), from, size) - from};
    }

    bool operator==(const TextRange &) const = default;
};
