#pragma once

#include <atomic>

struct sqlite3_vfs;

/// As long as it lives, every database file that is opened can be made to fail a write: between SQLite and
/// its files, where a full or broken disk fails. One at a time.
class FailingWrites {
public:
    FailingWrites();
    ~FailingWrites();

    /// From now on the write of that number, counted from 1, fails once, as on a full disk.
    void failAt(int number);
    bool hasFailed() const;
};
