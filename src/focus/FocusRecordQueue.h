#pragma once

#include "focus/FocusRecordWriter.h"
#include "model/events/KWNotificationCenter.h"

#include <functional>

/// Stores focus sessions at once; those that cannot be stored now are tried again each minute, in their
/// order, as long as the same user is signed in. Main thread.
class FocusRecordQueue {
public:
    /// The kit outlives it.
    explicit FocusRecordQueue(OrvaneKit &kit);

    void store(const FocusRecord &record);
    /// Hears a sentence about a session that could not be stored at once.
    std::function<void(const QString &)> onFailure;
    bool isEmpty() const { return m_waiting.isEmpty(); }

private:
    Result<void> tryAgain();

    FocusRecordWriter m_writer;
    QList<FocusRecord> m_waiting;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
