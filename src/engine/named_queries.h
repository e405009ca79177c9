#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/command.h"
#include "engine/sqlite_handle.h"
#include "engine/statement_guard.h"

namespace snippetarium {

/// The queries that are kept in the catalogue file by name. They are rows of the table
///
///     tblNamedQuery(name, parameters, body)
///
/// where `parameters` declares names and kinds in their order, "ownerID I, name T255, path L", and
/// `body` is a SELECT of the catalogue's dialect in which [ownerID] stands for the parameter's
/// value. Kinds: I 32-bit number, T50 and T255 text of that size, L long text.
class NamedQueries {
  public:
    /// The query's statement with the values bound, ready to run; prepared at its first use. Throws
    /// EngineError: NoSuchTable for an unknown name, WrongParameters where number or kinds differ.
    sqlite3_stmt* Bind(sqlite3* database, StatementGuard& guard, std::string_view name,
                       std::span<const Parameter> parameters);
    /// Forgets everything: the table may have changed.
    void Clear() { queries_.clear(); }

  private:
    struct Declaration {
        std::string name;
        Parameter::Type type;
    };
    struct Query {
        std::vector<Declaration> parameters;
        StatementHandle statement;
    };

    static std::vector<Declaration> ParseDeclarations(std::string_view text);
    static Query Load(sqlite3* database, StatementGuard& guard, std::string_view name);
    const Query& Find(sqlite3* database, StatementGuard& guard, std::string_view name);

    std::map<std::string, Query, std::less<>> queries_;
};

}  // namespace snippetarium
