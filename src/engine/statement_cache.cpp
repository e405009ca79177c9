#include "engine/statement_cache.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

#include "engine/engine_error.h"

namespace snippetarium {

bool StatementCache::Entry::IsBeingRead() const {
    return sqlite3_stmt_busy(statement.get()) != 0;
}

sqlite3_stmt* StatementCache::Get(sqlite3* database, std::string_view sql) {
    const auto found = bySql_.find(sql);
    if (found != bySql_.end()) {
        if (found->second->IsBeingRead()) {
            throw EngineError(EngineErrorCode::Unexpected,
                              "A statement was to run while its rows are still being read.");
        }
        entries_.splice(entries_.begin(), entries_, found->second);
        return entries_.front().statement.get();
    }
    entries_.push_front({std::string(sql), PrepareStatement(database, sql)});
    bySql_.emplace(entries_.front().sql, entries_.begin());
    if (entries_.size() > capacity_) DropOldest();
    return entries_.front().statement.get();
}

/// The new one in front stays, and so does what is being read.
void StatementCache::DropOldest() {
    const auto newest = std::prev(entries_.rend());
    const auto oldest = std::find_if(entries_.rbegin(), newest,
                                     [](const Entry& entry) { return !entry.IsBeingRead(); });
    if (oldest == newest) return;
    bySql_.erase(oldest->sql);
    entries_.erase(std::prev(oldest.base()));
}

void StatementCache::Clear() {
    bySql_.clear();
    entries_.clear();
}

}  // namespace snippetarium
