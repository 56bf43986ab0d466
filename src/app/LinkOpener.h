#pragma once

#include "app/OrvaneLink.h"
#include "app/ports/LaunchPorts.h"
#include "corvexkit/Result.h"
#include "corvexkit/time/Instant.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWListIdentifier.h"

#include <QStringList>

class KWAccountManager;
class KWCoreDataManager;

struct KWTaskModel;

/// Where a task is to be seen: closed and deleted ones are in no list of open tasks.
KWListIdentifier listShowing(const KWTaskModel &task);

/// Where a link leads to in the window.
class LinkTarget {
public:
    virtual ~LinkTarget() = default;
    virtual void showList(const KWListIdentifier &list) = 0;
    virtual void showTask(const QString &taskID, const KWListIdentifier &list) = 0;
    /// In the calendar; `start` is its own or that of one of its occurrences.
    virtual void showEvent(const QString &eventID, Instant start) = 0;
    virtual void showHabit(const QString &habitID) = 0;
    /// The link leads nowhere; the sentence says why.
    virtual void showMessage(const QString &sentence) = 0;
};

/// Opens links in the window. As long as nobody is signed in they wait. Main thread.
class LinkOpener : public LinksPort {
public:
    LinkOpener(KWCoreDataManager &manager, KWAccountManager &account, KWNotificationCenter &center,
               LinkTarget &target);

    void open(const QString &link) override;

private:
    Result<void> openTask(const QString &taskID);
    Result<void> openList(const QString &listID);
    Result<void> openEvent(const QString &eventID);
    Result<void> openHabit(const QString &habitID);
    void openWaiting();

    KWCoreDataManager &m_manager;
    KWAccountManager &m_account;
    LinkTarget &m_target;
    QStringList m_waiting;
    KWNotificationCenter::Observation m_signIn;
};
