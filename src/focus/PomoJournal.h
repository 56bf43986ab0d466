#pragma once

#include "corvexkit/Result.h"
#include "focus/FocusRecordWriter.h"

#include <optional>

class KWUserDefaults;

/// The Pomo that runs, as far as it was when it was last written down, so that a crash or the end of the
/// program loses none of it. Main thread.
class PomoJournal {
public:
    struct Entry {
        QString userID;
        Instant startDate{};
        QList<FocusStretch> stretches; ///< up to the last moment seen

        /// As a Pomo that ended then.
        FocusRecord record() const;
        bool operator==(const Entry &) const = default;
    };

    explicit PomoJournal(KWUserDefaults &defaults) : m_defaults(defaults) {}

    /// On disk when it returns.
    void keep(const Entry &entry);
    void clear();
    /// What an earlier run left. What cannot be read is none, and the log says so.
    std::optional<Entry> left() const;

private:
    KWUserDefaults &m_defaults;
};
