#pragma once

#include "focus/FocusRecordWriter.h"
#include "model/events/KWNotificationCenter.h"

/// Stores focus sessions at once; those that cannot be stored now are tried again each minute, in their
/// order, as long as the same user is signed in. Main thread.
class FocusRecordQueue {
public:
    /// The kit outlives it.
    explicit FocusRecordQueue(OrvaneKit &kit);

    void store(const FocusRecord &record);
    bool isEmpty() const { return m_waiting.isEmpty(); }

private:
    void tryAgain();

    FocusRecordWriter m_writer;
    QList<FocusRecord> m_waiting;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
