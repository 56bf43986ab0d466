#pragma once

#include "focus/FocusJournal.h"
#include "model/events/KWNotificationCenter.h"

#include <functional>

/// Stores focus sessions at once. Those that cannot be stored now wait in the journal and are tried again
/// each minute, and when their user signs in, until they are stored. Main thread.
class FocusRecordQueue {
public:
    /// Both outlive it.
    FocusRecordQueue(OrvaneKit &kit, FocusJournal &journal);

    /// Of the user who is signed in. When it fails, the session is neither stored nor on disk: it waits only
    /// as long as the program runs.
    Result<void> store(const FocusRecord &record);
    /// The same for any user; one who is not signed in has to sign in first.
    Result<void> store(const FocusJournal::Session &session);
    /// What earlier runs could not store.
    void storeWaiting();
    /// Hears a sentence when a session cannot be stored, but not at each further try.
    std::function<void(const QString &)> onFailure;

private:
    Result<void> tryToStore(const FocusJournal::Session &session);
    Result<void> tryAgain();
    void tell(const Error &error) const;

    OrvaneKit &m_kit;
    FocusJournal &m_journal;
    FocusRecordWriter m_writer;
    std::vector<KWNotificationCenter::Observation> m_observations;
};
