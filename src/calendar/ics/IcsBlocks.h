#pragma once

#include "corvexkit/Result.h"

#include <QByteArray>

#include <vector>

/// A calendar as text (RFC 5545), cut into what is parsed one by one, so that a broken event does no harm to
/// the others. Lines are unfolded and end with CR LF. Any thread.
struct IcsBlocks {
    // What is larger is no calendar that anybody follows.
    static constexpr qsizetype mostBytes = 20 * 1024 * 1024; ///< of the whole text
    static constexpr int mostEvents = 50'000;
    static constexpr int deepest = 8;                      ///< components in each other
    static constexpr qsizetype longestLine = 64 * 1024;    ///< a longer one holds a file, and is passed over
    static constexpr qsizetype longestEvent = 1024 * 1024; ///< a longer one is left out

    QByteArray head;                  ///< the properties of the calendar itself
    std::vector<QByteArray> zones{};  ///< each VTIMEZONE
    std::vector<QByteArray> events{}; ///< each VEVENT, without what is in it, such as its alarms
    int leftOut = 0;                  ///< events that have no end, or are too long

    /// A text that is no calendar, that breaks off or goes beyond the above is an error.
    static Result<IcsBlocks> cut(const QByteArray &text);
};
