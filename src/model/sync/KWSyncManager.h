#pragma once

#include "corvexkit/Result.h"

#include <QString>

#include <functional>

/// Exchanges records with the service of the account. The base is the sync of an account that lives on
/// this computer only: there is nobody to exchange records with, so nothing happens, nothing is posted, and
/// every push and pull has succeeded before the call returns. Main thread; everything returns at once.
class KWSyncManager {
public:
    /// Hears on the main thread how it went.
    using CompletionHandler = std::function<void(Result<void>)>;
    /// Whether the tasks below a task are meant too.
    enum class WithChildren { No, Yes };

    KWSyncManager() = default;
    KWSyncManager(const KWSyncManager &) = delete;
    KWSyncManager &operator=(const KWSyncManager &) = delete;
    virtual ~KWSyncManager() = default;

    /// Pulls and pushes when the last time is long enough ago.
    virtual void batchSyncIfNeeded() {}
    /// Pushes what is not yet pushed, then pulls. `handler` hears of the push.
    virtual void syncImmediatelyWithPushCompletionHandler(CompletionHandler handler) { succeed(handler); }
    /// Does so because somebody asked.
    virtual void manualSync() {}

    /// Takes what the service has of one task, of the columns of one list, of everything; pushes nothing.
    virtual void pullTask(const QString & /*taskID*/, const QString & /*projectID*/,
                          WithChildren /*withChildren*/, CompletionHandler handler)
    {
        succeed(handler);
    }
    virtual void pullColumnsInProject(const QString & /*projectID*/, CompletionHandler handler)
    {
        succeed(handler);
    }
    virtual void pullRemoteChangesWithCompletionHandler(CompletionHandler handler) { succeed(handler); }

private:
    static void succeed(const CompletionHandler &handler)
    {
        if (handler) handler({});
    }
};
