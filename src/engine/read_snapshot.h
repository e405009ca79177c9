#pragma once

struct sqlite3;

namespace snippetarium {

/// While it lives, everything read through a handle is of one moment, whatever others write.
class ReadSnapshot {
  public:
    explicit ReadSnapshot(sqlite3* database);
    ~ReadSnapshot();
    ReadSnapshot(const ReadSnapshot&) = delete;
    ReadSnapshot& operator=(const ReadSnapshot&) = delete;

  private:
    sqlite3* database_;
};

}  // namespace snippetarium
