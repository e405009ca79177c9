#include "engine/statement_cache.h"

namespace snippetarium {

sqlite3_stmt* StatementCache::Get(sqlite3* database, std::string_view sql) {
    const auto found = bySql_.find(sql);
    if (found != bySql_.end()) {
        entries_.splice(entries_.begin(), entries_, found->second);
        return entries_.front().statement.get();
    }
    entries_.push_front({std::string(sql), PrepareStatement(database, sql)});
    bySql_.emplace(entries_.front().sql, entries_.begin());
    if (entries_.size() > capacity_) {
        bySql_.erase(entries_.back().sql);
        entries_.pop_back();
    }
    return entries_.front().statement.get();
}

void StatementCache::Clear() {
    bySql_.clear();
    entries_.clear();
}

}  // namespace snippetarium
