#include "support/FailingWrites.h"

#include <sqlite3.h>

#include <map>
#include <memory>
#include <mutex>

namespace {

// Writes until the one that fails; negative when none is to.
std::atomic<int> writesLeft{-1};
std::atomic<bool> hasFailedOne{false};

// A file keeps its own object; its table of methods is replaced by one that writes here.
struct Methods {
    sqlite3_io_methods table;
    const sqlite3_io_methods *original;
};
std::mutex methodsMutex;
std::map<const sqlite3_io_methods *, std::unique_ptr<Methods>> replacements;

sqlite3_vfs *original = nullptr;
sqlite3_vfs shim;

int writeOrFail(sqlite3_file *file, const void *data, int size, sqlite3_int64 offset)
{
    if (writesLeft >= 0 && writesLeft-- == 0) {
        hasFailedOne = true;
        return SQLITE_FULL;
    }
    const auto *methods = reinterpret_cast<const Methods *>(file->pMethods);
    return methods->original->xWrite(file, data, size, offset);
}

// No power is cut here, and waiting for the disk takes most of the time.
int leaveInCache(sqlite3_file *, int) { return SQLITE_OK; }

int open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    const int status = original->xOpen(original, name, file, flags, outFlags);
    if (status != SQLITE_OK || !file->pMethods) return status;
    const std::lock_guard lock{methodsMutex};
    auto &methods = replacements[file->pMethods];
    if (!methods) {
        methods = std::make_unique<Methods>(Methods{*file->pMethods, file->pMethods});
        methods->table.xWrite = writeOrFail;
        methods->table.xSync = leaveInCache;
    }
    file->pMethods = &methods->table;
    return status;
}

} // namespace

FailingWrites::FailingWrites()
{
    writesLeft = -1;
    hasFailedOne = false;
    original = sqlite3_vfs_find(nullptr);
    shim = *original;
    shim.zName = "failing";
    shim.xOpen = open;
    sqlite3_vfs_register(&shim, 1);
}

FailingWrites::~FailingWrites()
{
    sqlite3_vfs_unregister(&shim);
    sqlite3_vfs_register(original, 1);
}

void FailingWrites::failAt(int number) { writesLeft = number - 1; }

bool FailingWrites::hasFailed() const { return hasFailedOne; }
