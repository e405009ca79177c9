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
    /// The query's text as it is stored. Throws EngineError (NoSuchTable).
    const std::string& Body(sqlite3* database, StatementGuard& guard, std::string_view name);
    /// As Bind, with another text in place of the query's, which is prepared for this one time.
    StatementHandle BindBody(sqlite3* database, StatementGuard& guard, std::string_view name,
                             std::string_view body, std::span<const Parameter> parameters);
    /// Forgets everything: the table may have changed.
    void Clear() { queries_.clear(); }

  private:
    struct Declaration {
        std::string name;
        Parameter::Type type;
    };
    struct Query {
        std::vector<Declaration> parameters;
        std::string body;
        StatementHandle statement;
    };

    static std::vector<Declaration> ParseDeclarations(std::string_view text);
    static StatementHandle Prepare(sqlite3* database, StatementGuard& guard, std::string_view name,
                                   std::string_view body,
                                   const std::vector<Declaration>& declarations);
    static void BindValues(sqlite3* database, sqlite3_stmt* statement, std::string_view name,
                           const std::vector<Declaration>& declarations,
                           std::span<const Parameter> parameters);
    static Query Load(sqlite3* database, StatementGuard& guard, std::string_view name);
    const Query& Find(sqlite3* database, StatementGuard& guard, std::string_view name);

    std::map<std::string, Query, std::less<>> queries_;
};

}  // namespace snippetarium
