#include "focus/FocusRecordQueue.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/StoreFailure.h"

namespace {

constexpr CXLogger queueLog{u"focus"};

} // namespace

FocusRecordQueue::FocusRecordQueue(OrvaneKit &kit, FocusJournal &journal)
    : m_kit(kit), m_journal(journal), m_writer(kit)
{
    m_observations.push_back(
        kit.center().addObserver(KWNewMinuteComesNotification, [this](const auto &) { (void)tryAgain(); }));
    m_observations.push_back(
        kit.center().addObserver(KWUserDidSignInNotification, [this](const auto &) { storeWaiting(); }));
}

Result<void> FocusRecordQueue::store(const FocusRecord &record)
{
    if (!m_kit.account().isSignedIn()) return Error{storeText("Nobody is signed in.")};
    return store(FocusJournal::Session{.userID = m_kit.account().currentUserID(), .record = record});
}

// On disk first: the program may end at any moment of the save.
Result<void> FocusRecordQueue::store(const FocusJournal::Session &session)
{
    Result<void> kept = m_journal.keepWaiting(session);
    if (session.userID != m_kit.account().currentUserID()) return kept;
    const Result<void> stored = tryToStore(session);
    if (stored) return {};
    tell(stored.error());
    return kept;
}

void FocusRecordQueue::storeWaiting()
{
    if (const Result<void> stored = tryAgain(); !stored) tell(stored.error());
}

// One that fails for a reason of its own holds no other back. The answer is the first failure.
Result<void> FocusRecordQueue::tryAgain()
{
    Result<void> outcome{};
    const QList<FocusJournal::Session> waiting = m_journal.waiting();
    for (const FocusJournal::Session &each : waiting) {
        if (each.userID != m_kit.account().currentUserID()) continue;
        // The program broke off right behind the save.
        if (m_writer.isStored(each.record)) {
            m_journal.remove(each);
            continue;
        }
        Result<void> stored = tryToStore(each);
        if (!stored && outcome) outcome = std::move(stored);
    }
    return outcome;
}

Result<void> FocusRecordQueue::tryToStore(const FocusJournal::Session &session)
{
    Result<void> stored = m_writer.store(session.record);
    if (stored)
        m_journal.remove(session);
    else
        queueLog.warning(stored.error().sentence);
    return stored;
}

void FocusRecordQueue::tell(const Error &error) const
{
    if (!onFailure) return;
    onFailure(KWLocalizedString("The focus time could not be saved; this is tried again each minute. %1")
                  .arg(error.sentence));
}
