#pragma once

/// The syncs that records of their own kind have beside KWSyncManager's, for habits and the rest have a
/// service and a rhythm of their own. Each class is also the sync of an account that lives on this computer
/// only, which has nobody to exchange records with. Main thread; everything returns at once.

/// Habits, their sections, check-ins, notes and skips.
class KWHabitSyncManager {
public:
    virtual ~KWHabitSyncManager() = default;
    virtual void batchSync() {}
};

/// Focus sessions and their slices.
class KWFocusSyncManager {
public:
    virtual ~KWFocusSyncManager() = default;
    virtual void batchSync() {}
};

/// The columns of boards.
class KWColumnBatchSyncManager {
public:
    virtual ~KWColumnBatchSyncManager() = default;
    virtual void batchSync() {}
};

/// Templates that tasks are made from.
class KWTaskTemplateSyncManager {
public:
    virtual ~KWTaskTemplateSyncManager() = default;
    virtual void batchSync() {}
};
