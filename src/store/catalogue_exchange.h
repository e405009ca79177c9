#pragma once

#include <string>

#include "engine/cancel_poll.h"
#include "engine/sqlite_handle.h"
#include "support/file_lock.h"
#include "support/host.h"

namespace snippetarium {

/// Puts another file in the place of a folder's catalogue and keeps the one that was there. The
/// catalogue must be closed in this program.
///
/// Whatever kills the program between two steps, the catalogue's name leads to the old file or the
/// new one, whole. No log of the old file ever meets the new one: the engine would take its pages
/// into it.
///
///     CatalogueExchange exchange(host, programFolder);
///     ... make a whole file at exchange.NewPath() ...
///     exchange.KeepOld();
///     exchange.PutNewInPlace();
class CatalogueExchange {
  public:
    /// Claims the right to write. Throws EngineError: OpenElsewhere when another program has the
    /// catalogue open.
    CatalogueExchange(const Host& host, const std::string& programFolder);
    /// Removes the new file where it was not put in place.
    ~CatalogueExchange();
    CatalogueExchange(const CatalogueExchange&) = delete;
    CatalogueExchange& operator=(const CatalogueExchange&) = delete;

    /// The catalogue's file, there or not.
    const std::string& OldPath() const { return oldPath_; }
    /// Where the new file is to be made; nothing is there.
    const std::string& NewPath() const { return newPath_; }

    /// Keeps a sound catalogue as a backup, and sets any other file aside. Returns where it is now,
    /// empty when there was none. Throws Error; the catalogue is then as it was. The poll is asked
    /// while the catalogue is examined, so that events can run.
    std::string KeepOld(const CancelPoll& poll);
    /// Sets the catalogue's file aside with its log, as "QRT_SN damaged TIME.mde". Returns its
    /// path, empty when there was no file.
    std::string SetOldAside(const CancelPoll& poll);

    void PutNewInPlace();

  private:
    bool IsOldSound(const CancelPoll& poll) const;
    std::string BackUpOld();
    std::string MoveOldAside() const;
    std::string UnusedAsidePath() const;

    Host host_;
    std::string programFolder_;
    std::string oldPath_;
    std::string newPath_;
    FileLock writing_;
    DatabaseHandle claim_;  // on a sound catalogue, from then on until the new file is in place
};

}  // namespace snippetarium
