#pragma once

#include <memory>

#include "engine/background_copy.h"

namespace snippetarium {

class Database;

/// The first backup of the day, made while the program goes on; for each start of the program. Drop
/// it before the catalogue is closed: an unfinished backup is given up then.
class DailyBackup {
  public:
    explicit DailyBackup(Database& db) : db_(db) {}

    /// Begins the backup where it is due; later calls look whether it is finished. Never waits.
    /// Returns whether there is more to do; a failure is reported and ends it.
    bool Step();

  private:
    bool Begin();

    Database& db_;
    std::unique_ptr<BackgroundCopy> copy_;
};

}  // namespace snippetarium
