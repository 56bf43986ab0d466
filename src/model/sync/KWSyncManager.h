#pragma once

#include "corvexkit/Result.h"

#include <functional>

/// Exchanges records with the service of the account. Main thread; everything returns at once.
class KWSyncManager {
public:
    using PushCompletionHandler = std::function<void(Result<void>)>;

    KWSyncManager() = default;
    KWSyncManager(const KWSyncManager &) = delete;
    KWSyncManager &operator=(const KWSyncManager &) = delete;
    virtual ~KWSyncManager() = default;

    /// Pulls and pushes when the last time is long enough ago.
    virtual void batchSyncIfNeeded() = 0;
    /// Pushes what is not yet pushed, then pulls. `handler` hears on the main thread how the push went.
    virtual void syncImmediatelyWithPushCompletionHandler(PushCompletionHandler handler) = 0;
    /// Does so because somebody asked.
    virtual void manualSync() = 0;
};

/// The sync of an account that lives on this computer only: there is nobody to exchange records with,
/// so nothing happens, nothing is posted, and every push has succeeded.
class LocalOnlySync final : public KWSyncManager {
public:
    void batchSyncIfNeeded() override {}
    void syncImmediatelyWithPushCompletionHandler(PushCompletionHandler handler) override
    {
        if (handler) handler({});
    }
    void manualSync() override {}
};
