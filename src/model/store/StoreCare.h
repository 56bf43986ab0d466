#pragma once

#include "model/events/KWNotificationCenter.h"
#include "model/store/StoreBackups.h"

#include <functional>

class KWCoreDataManager;

/// How the last run of the client on a data folder came to its end.
enum class LastRun { Ended, BrokeOff };

/// Looks after the store while the client runs: reads it from end to end after a run that broke off, and
/// backs it up once a day. All of it in the background, one piece of work after the other. Main thread.
class StoreCare {
public:
    StoreCare(KWCoreDataManager &manager, KWNotificationCenter &center, const DataFolders &folders);

    /// Once the window stands. From then on a new day makes a backup.
    void start(LastRun lastRun);

    /// The store is damaged; with the newest sound backup, if any. Called once.
    std::function<void(std::optional<StoreBackup> newestGood)> onDamage;

private:
    enum class Thoroughness { BackUp, CheckAndBackUp };
    void perform(Thoroughness thoroughness);
    void didPerform(bool isDamaged, const std::optional<StoreBackup> &newestGood);

    KWCoreDataManager &m_manager;
    KWNotificationCenter &m_center;
    StoreBackups m_backups;
    bool m_isBusy = false;
    bool m_isDueAgain = false;           // a day came while busy
    bool m_isDamaged = false;            // found here: nothing is backed up any more
    std::shared_ptr<StoreCare *> m_self; // background work may end after this has gone
    KWNotificationCenter::Observation m_newDay;
};
