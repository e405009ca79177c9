#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/sqlite_handle.h"

namespace snippetarium {

/// Keeps the prepared statements used last, by their texts: preparing one costs about as much as
/// running it. A statement handed out stays valid as long as its rows are being read, and else
/// until the next call.
class StatementCache {
  public:
    explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

    /// The statement of this text, prepared now if need be. It is reset, with no values bound.
    /// Throws EngineError; also where the rows of this very statement are being read, which two
    /// readers would take from each other.
    sqlite3_stmt* Get(sqlite3* database, std::string_view sql);
    void Clear();

  private:
    struct Entry {
        std::string sql;
        StatementHandle statement;

        bool IsBeingRead() const;
    };

    void DropOldest();

    std::size_t capacity_;
    std::list<Entry> entries_;  // used last in front; the map's keys look into these texts
    std::unordered_map<std::string_view, std::list<Entry>::iterator> bySql_;
};

}  // namespace snippetarium
