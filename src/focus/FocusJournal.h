#pragma once

#include "focus/FocusRecordWriter.h"

#include <optional>

class KWUserDefaults;

/// Focus sessions that are not in the store, each with its user: the Pomo that runs, as far as it was when it
/// was last written down; Pomos that an earlier run took with it; sessions that are over and wait to be
/// stored. They outlive the program, in the defaults. Main thread.
class FocusJournal {
public:
    struct Session {
        QString userID;
        FocusRecord record;

        /// One session, however far it had come: one user begins one session of a kind at a moment.
        bool isSameAs(const Session &other) const;
        bool operator==(const Session &) const = default;
    };

    /// What ran when the program ended is left from now on. A text that cannot be read is put aside under
    /// Settings::unreadableFocusSessions, and the log says so.
    explicit FocusJournal(KWUserDefaults &defaults);

    /// On disk when it returns, as far as the disk takes it.
    void keepRunning(const Session &session);
    void dropRunning();
    /// Of any user, the oldest first.
    const QList<Session> &left() const { return m_left; }
    const QList<Session> &waiting() const { return m_waiting; }
    /// It is over, whether it ran or was left, and waits. It is on disk, or the error says why not: then it
    /// is kept as long as the program runs and goes to disk with whatever is written next.
    Result<void> keepWaiting(const Session &session);
    /// One that is stored, or that its owner drops.
    void remove(const Session &session);

private:
    void putAside(const QString &text);
    void setLists();

    KWUserDefaults &m_defaults;
    std::optional<Session> m_running;
    QList<Session> m_left;
    QList<Session> m_waiting;
};
