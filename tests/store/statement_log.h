#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/database.h"

namespace snippetarium::test {

/// Writes down the statements that a database is given, from here to its own end.
class StatementLog {
  public:
    explicit StatementLog(Database& db) : db_(db) {
        db_.SetStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
    }
    ~StatementLog() { db_.SetStatementObserver(nullptr); }
    StatementLog(const StatementLog&) = delete;
    StatementLog& operator=(const StatementLog&) = delete;

    /// Those since the last call.
    std::vector<std::string> Take() { return std::exchange(statements_, {}); }

  private:
    Database& db_;
    std::vector<std::string> statements_;
};

}  // namespace snippetarium::test
