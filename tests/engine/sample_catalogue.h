#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql_literals.h"

namespace snippetarium::test {

/// What a statement did: the rows it returned or, when it changes something, all rows of all tables
/// afterwards. Each row is one text; `error` is empty where all went well.
struct Outcome {
    std::string error;
    std::vector<std::string> rows;

    bool operator==(const Outcome&) const = default;
};

/// A small filled catalogue in memory, used without the engine's own classes.
class SampleCatalogue {
  public:
    SampleCatalogue();

    sqlite3* Handle() const { return database_.get(); }
    /// Runs the statement and takes its changes back.
    Outcome Try(const std::string& sql, const std::vector<SqlLiteral>& parameters = {}) const;

  private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };

    void Run(const char* script) const;
    Outcome Read(const std::string& sql, const std::vector<SqlLiteral>& parameters) const;
    std::vector<std::string> AllRows() const;

    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace snippetarium::test
