#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/sqlite_handle.h"

namespace snippetarium {

/// Keeps the prepared statements used last, by their texts: preparing one costs about as much as
/// running it. A statement handed out stays valid until the next call.
class StatementCache {
  public:
    explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

    /// The statement of this text, prepared now if need be. It is reset, with no values bound.
    sqlite3_stmt* Get(sqlite3* database, std::string_view sql);
    void Clear();

  private:
    struct Entry {
        std::string sql;
        StatementHandle statement;
    };

    std::size_t capacity_;
    std::list<Entry> entries_;  // used last in front; the map's keys look into these texts
    std::unordered_map<std::string_view, std::list<Entry>::iterator> bySql_;
};

}  // namespace snippetarium
