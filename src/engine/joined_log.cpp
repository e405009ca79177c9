#include "engine/joined_log.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace snippetarium {

// In front of every page the log has a frame header. Bytes 4 to 7 of it are not all zero where the
// page is the last of a commit, so that is where the joining ends.

namespace {

constexpr int kFrameHeader = 24;
constexpr int kCommitMark = 4;
constexpr int kCommitMarkSize = 4;
/// Fifteen pages. A longer statement takes several calls.
constexpr std::size_t kMostJoined = 64 * 1024;

sqlite3_vfs* SystemLayer() {
    return sqlite3_vfs_find(nullptr);
}

/// The log's file. The library gives the memory for it, with room behind for the file of the
/// system's layer, to which everything goes in the end.
class JoinedLog {
  public:
    /// The library's view of this; it comes first, as the library demands.
    sqlite3_file base = {};

    static JoinedLog& Of(sqlite3_file* file) { return *reinterpret_cast<JoinedLog*>(file); }

    sqlite3_file* System() { return reinterpret_cast<sqlite3_file*>(this + 1); }

    int Write(const void* data, int size, sqlite3_int64 offset) {
        if (hasGap_ && offset > end_) return SQLITE_IOERR_WRITE;
        hasGap_ = false;
        const bool isHeader = size == kFrameHeader;
        const bool isNext = offset == end_ + static_cast<sqlite3_int64>(joined_.size());
        // What is written over is rare (the header of the log, a page that a statement changed
        // twice), and nothing says how much of it follows.
        if (!isNext || (joined_.empty() && !isHeader) || !HasRoom(size))
            return WriteThrough(data, size, offset);
        const auto* bytes = static_cast<const char*>(data);
        joined_.insert(joined_.end(), bytes, bytes + size);
        if (isHeader) {
            isCommit_ = std::any_of(bytes + kCommitMark, bytes + kCommitMark + kCommitMarkSize,
                                    [](char byte) { return byte != 0; });
            return SQLITE_OK;
        }
        return isCommit_ ? Flush() : SQLITE_OK;
    }

    /// Call it before anything that looks at the file. After a failure what was held is gone; it
    /// may have been accepted long before, so nothing is taken behind the gap until the library
    /// writes there anew, as it does after a rollback.
    int Flush() {
        if (joined_.empty()) return SQLITE_OK;
        const int size = static_cast<int>(joined_.size());
        const int result = System()->pMethods->xWrite(System(), joined_.data(), size, end_);
        if (result == SQLITE_OK) end_ += size;
        hasGap_ = result != SQLITE_OK;
        joined_.clear();
        return result;
    }

    int Truncate(sqlite3_int64 size) {
        end_ = std::min(end_, size);
        return System()->pMethods->xTruncate(System(), size);
    }

    /// False where there is no memory.
    bool Reserve() {
        try {
            joined_.reserve(kMostJoined);
        } catch (const std::bad_alloc&) {
            return false;
        }
        return true;
    }

  private:
    bool HasRoom(int size) const {
        return joined_.size() + static_cast<std::size_t>(size) <= joined_.capacity();
    }

    int WriteThrough(const void* data, int size, sqlite3_int64 offset) {
        int result = Flush();
        if (result == SQLITE_OK) result = System()->pMethods->xWrite(System(), data, size, offset);
        if (result != SQLITE_OK) return result;
        // A log begins anew with the header at its start.
        end_ = offset == 0 ? size : std::max(end_, offset + size);
        return SQLITE_OK;
    }

    std::vector<char> joined_;
    sqlite3_int64 end_ = 0;  // what is held belongs here
    bool isCommit_ = false;  // the page that comes next ends a commit
    bool hasGap_ = false;    // what was held for end_ could not be written
};

/// A method of the system's file, after what is held back for it was written.
template <auto Method, typename... Arguments>
int Forward(sqlite3_file* file, Arguments... arguments) {
    JoinedLog& log = JoinedLog::Of(file);
    const int result = log.Flush();
    if (result != SQLITE_OK) return result;
    return (log.System()->pMethods->*Method)(log.System(), arguments...);
}

int Close(sqlite3_file* file) {
    JoinedLog& log = JoinedLog::Of(file);
    const int flushed = log.Flush();
    const int closed = log.System()->pMethods->xClose(log.System());
    std::destroy_at(&log);
    return flushed != SQLITE_OK ? flushed : closed;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    return JoinedLog::Of(file).Write(data, size, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    JoinedLog& log = JoinedLog::Of(file);
    const int result = log.Flush();
    return result != SQLITE_OK ? result : log.Truncate(size);
}

int SectorSize(sqlite3_file* file) {
    sqlite3_file* const system = JoinedLog::Of(file).System();
    return system->pMethods->xSectorSize(system);
}

int DeviceCharacteristics(sqlite3_file* file) {
    sqlite3_file* const system = JoinedLog::Of(file).System();
    return system->pMethods->xDeviceCharacteristics(system);
}

using Methods = sqlite3_io_methods;

constexpr Methods kMethods = {
    .iVersion = 1,  // what comes with later versions is for the database's own file
    .xClose = Close,
    .xRead = Forward<&Methods::xRead, void*, int, sqlite3_int64>,
    .xWrite = Write,
    .xTruncate = Truncate,
    .xSync = Forward<&Methods::xSync, int>,
    .xFileSize = Forward<&Methods::xFileSize, sqlite3_int64*>,
    .xLock = Forward<&Methods::xLock, int>,
    .xUnlock = Forward<&Methods::xUnlock, int>,
    .xCheckReservedLock = Forward<&Methods::xCheckReservedLock, int*>,
    .xFileControl = Forward<&Methods::xFileControl, int, void*>,
    .xSectorSize = SectorSize,
    .xDeviceCharacteristics = DeviceCharacteristics,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

/// Every other file stays the system layer's own.
int Open(sqlite3_vfs* /*layer*/, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    sqlite3_vfs* const system = SystemLayer();
    if ((flags & SQLITE_OPEN_WAL) == 0) return system->xOpen(system, name, file, flags, outFlags);
    JoinedLog& log = *new (file) JoinedLog;
    if (!log.Reserve()) {
        std::destroy_at(&log);
        return SQLITE_NOMEM;
    }
    const int result = system->xOpen(system, name, log.System(), flags, outFlags);
    // Without methods the library takes the file for closed.
    if (result == SQLITE_OK) {
        log.base.pMethods = &kMethods;
    } else {
        std::destroy_at(&log);
        file->pMethods = nullptr;
    }
    return result;
}

struct Registration {
    sqlite3_vfs layer = {};
    int result = SQLITE_ERROR;

    Registration() {
        const sqlite3_vfs* const system = SystemLayer();
        if (system == nullptr) return;
        layer = *system;
        layer.zName = "joined-log";
        layer.szOsFile += static_cast<int>(sizeof(JoinedLog));
        layer.pNext = nullptr;
        layer.xOpen = Open;
        result = sqlite3_vfs_register(&layer, 0);
    }
};

}  // namespace

const char* JoinedLogLayer() {
    static Registration registration;
    return registration.result == SQLITE_OK ? registration.layer.zName : nullptr;
}

}  // namespace snippetarium
