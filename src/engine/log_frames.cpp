#include "engine/log_frames.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstring>

// A frame of the log is a header and a page. When headers are written anew, after a page changed
// again in the same transaction, no page follows. These lie before the end of what was written, so
// only a header at the end or behind it waits.

namespace snippetarium {

namespace {

constexpr int kHeaderSize = 24;
/// Larger pages, which a catalogue does not have, are written in two calls.
constexpr int kMaximalPageSize = 4096;

/// A log, as the library knows it. The file of the system's own kind lies in memory behind it.
struct LogFile {
    sqlite3_file base;
    sqlite3_int64 end;
    sqlite3_int64 frameAt;
    bool isHeaderWaiting;
    std::array<char, kHeaderSize + kMaximalPageSize> frame;
};

LogFile& LogOf(sqlite3_file* file) {
    return *reinterpret_cast<LogFile*>(file);
}

sqlite3_file* SystemFileOf(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(LogFile));
}

int WriteThrough(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    LogFile& log = LogOf(file);
    sqlite3_file* const system = SystemFileOf(file);
    // What begins at 0 is a new log over the old one.
    log.end = offset == 0 ? size : std::max(log.end, offset + size);
    return system->pMethods->xWrite(system, data, size, offset);
}

/// Writes a header for which no page came. The library never does that at the end of the log.
int WriteWaitingHeader(sqlite3_file* file) {
    LogFile& log = LogOf(file);
    if (!log.isHeaderWaiting) return SQLITE_OK;
    log.isHeaderWaiting = false;
    return WriteThrough(file, log.frame.data(), kHeaderSize, log.frameAt);
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    LogFile& log = LogOf(file);
    if (log.isHeaderWaiting && offset == log.frameAt + kHeaderSize && size <= kMaximalPageSize) {
        log.isHeaderWaiting = false;
        std::memcpy(log.frame.data() + kHeaderSize, data, static_cast<std::size_t>(size));
        return WriteThrough(file, log.frame.data(), kHeaderSize + size, log.frameAt);
    }
    if (const int result = WriteWaitingHeader(file); result != SQLITE_OK) return result;
    if (size != kHeaderSize || offset < log.end) return WriteThrough(file, data, size, offset);
    std::memcpy(log.frame.data(), data, kHeaderSize);
    log.frameAt = offset;
    log.isHeaderWaiting = true;
    return SQLITE_OK;
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (const int result = WriteWaitingHeader(file); result != SQLITE_OK) return result;
    LogFile& log = LogOf(file);
    log.end = std::min(log.end, size);
    sqlite3_file* const system = SystemFileOf(file);
    return system->pMethods->xTruncate(system, size);
}

/// Calls the system's own method with everything written.
template <auto Method, typename... Arguments>
int PassOn(sqlite3_file* file, Arguments... arguments) {
    if (const int result = WriteWaitingHeader(file); result != SQLITE_OK) return result;
    sqlite3_file* const system = SystemFileOf(file);
    return (system->pMethods->*Method)(system, arguments...);
}

template <auto Method>
int Ask(sqlite3_file* file) {
    sqlite3_file* const system = SystemFileOf(file);
    return (system->pMethods->*Method)(system);
}

int Close(sqlite3_file* file) {
    const int written = WriteWaitingHeader(file);
    const int closed = Ask<&sqlite3_io_methods::xClose>(file);
    return written != SQLITE_OK ? written : closed;
}

using Methods = sqlite3_io_methods;

constexpr Methods kLogMethods = {
    .iVersion = 1,
    .xClose = Close,
    .xRead = PassOn<&Methods::xRead, void*, int, sqlite3_int64>,
    .xWrite = Write,
    .xTruncate = Truncate,
    .xSync = PassOn<&Methods::xSync, int>,
    .xFileSize = PassOn<&Methods::xFileSize, sqlite3_int64*>,
    .xLock = PassOn<&Methods::xLock, int>,
    .xUnlock = PassOn<&Methods::xUnlock, int>,
    .xCheckReservedLock = PassOn<&Methods::xCheckReservedLock, int*>,
    .xFileControl = PassOn<&Methods::xFileControl, int, void*>,
    .xSectorSize = Ask<&Methods::xSectorSize>,
    .xDeviceCharacteristics = Ask<&Methods::xDeviceCharacteristics>,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

sqlite3_vfs* SystemVfsOf(sqlite3_vfs* vfs) {
    return static_cast<sqlite3_vfs*>(vfs->pAppData);
}

int Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    sqlite3_vfs* const system = SystemVfsOf(vfs);
    if ((flags & SQLITE_OPEN_WAL) == 0) return system->xOpen(system, name, file, flags, outFlags);
    file->pMethods = nullptr;
    const int result = system->xOpen(system, name, SystemFileOf(file), flags, outFlags);
    if (result != SQLITE_OK) return result;
    LogFile& log = LogOf(file);
    log.end = 0;
    log.isHeaderWaiting = false;
    log.base.pMethods = &kLogMethods;
    return SQLITE_OK;
}

struct Registered {
    sqlite3_vfs vfs;

    Registered() : vfs(*sqlite3_vfs_find(nullptr)) {
        vfs.pAppData = sqlite3_vfs_find(nullptr);
        vfs.zName = "snippetarium";
        vfs.szOsFile += static_cast<int>(sizeof(LogFile));
        vfs.xOpen = Open;
        sqlite3_vfs_register(&vfs, 0);
    }
};

}  // namespace

const char* LogFramesVfs() {
    static const Registered registered;
    return registered.vfs.zName;
}

}  // namespace snippetarium
