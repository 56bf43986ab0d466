#pragma once

#include <QString>

/// Holds a data folder for one process, by a lock of the kernel on a file in it (flock(2)): it goes with
/// the process however that ends, so that a file left behind locks nobody out.
class FolderLock {
public:
    enum class Outcome { Taken, HeldByAnother, CannotWrite };

    explicit FolderLock(QString path);
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;
    ~FolderLock() { unlock(); }

    /// Does not wait. Makes the folder and the file where they are missing.
    Outcome tryLock();
    void unlock();

private:
    QString m_path;
    int m_descriptor = -1;
};
