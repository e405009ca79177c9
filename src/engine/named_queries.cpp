#include "engine/named_queries.h"

#include <sqlite3.h>

#include "engine/engine_error.h"
#include "engine/jet_sql.h"

namespace snippetarium {

namespace {

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

Parameter::Type TypeOf(std::string_view kind) {
    if (kind == "I") return Parameter::Type::Long;
    if (kind == "T50" || kind == "T255") return Parameter::Type::Text;
    if (kind == "L") return Parameter::Type::LongText;
    throw EngineError(
        EngineErrorCode::WrongParameters,
        "A stored query declares a parameter of the unknown kind '" + std::string(kind) + "'.");
}

std::string ColumnText(sqlite3_stmt* statement, int column) {
    const unsigned char* text = sqlite3_column_text(statement, column);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

void BindValue(sqlite3* database, sqlite3_stmt* statement, int index, const Parameter& parameter) {
    int result = SQLITE_OK;
    if (const auto* number = std::get_if<std::int32_t>(&parameter.GetValue())) {
        result = sqlite3_bind_int(statement, index, *number);
    } else {
        // The values outlive the run: the command that holds them waits for it.
        const std::string& text = std::get<std::string>(parameter.GetValue());
        result = sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_STATIC,
                                     SQLITE_UTF8);
    }
    if (result != SQLITE_OK) ThrowEngineError(database, result);
}

}  // namespace

std::vector<NamedQueries::Declaration> NamedQueries::ParseDeclarations(std::string_view text) {
    std::vector<Declaration> declarations;
    for (text = Trim(text); !text.empty();) {
        const std::size_t comma = text.find(',');
        const std::string_view item = Trim(text.substr(0, comma));
        const std::size_t blank = item.find(' ');
        const std::string_view kind =
            blank == std::string_view::npos ? std::string_view() : Trim(item.substr(blank));
        declarations.push_back({std::string(item.substr(0, blank)), TypeOf(kind)});
        text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
    }
    return declarations;
}

NamedQueries::Query NamedQueries::Load(sqlite3* database, StatementGuard& guard,
                                       std::string_view name) {
    const StatementHandle row = PrepareStatement(
        database, "SELECT parameters, body FROM tblNamedQuery WHERE name = ?1 COLLATE NOCASE");
    sqlite3_bind_text64(row.get(), 1, name.data(), name.size(), SQLITE_STATIC, SQLITE_UTF8);
    const int result = sqlite3_step(row.get());
    if (result == SQLITE_DONE) {
        throw EngineError(EngineErrorCode::NoSuchTable,
                          "The catalogue has no stored query '" + std::string(name) + "'.");
    }
    if (result != SQLITE_ROW) ThrowEngineError(database, result);

    Query query;
    query.parameters = ParseDeclarations(ColumnText(row.get(), 0));
    query.body = ColumnText(row.get(), 1);
    query.statement = Prepare(database, guard, name, query.body, query.parameters);
    return query;
}

StatementHandle NamedQueries::Prepare(sqlite3* database, StatementGuard& guard,
                                      std::string_view name, std::string_view body,
                                      const std::vector<Declaration>& declarations) {
    TranslationOptions options;
    for (const Declaration& declaration : declarations)
        options.parameterNames.push_back(declaration.name);
    const Translation translation = Translate(body, options);
    if (translation.verb != StatementVerb::Select) {
        throw EngineError(EngineErrorCode::NotAllowed,
                          "The stored query '" + std::string(name) + "' is not a SELECT.");
    }
    const StatementGuard::Scope scope(guard, StatementPurpose::Query);
    return PrepareStatement(database, translation.sql);
}

const NamedQueries::Query& NamedQueries::Find(sqlite3* database, StatementGuard& guard,
                                              std::string_view name) {
    const auto found = queries_.find(name);
    if (found != queries_.end()) return found->second;
    return queries_.emplace(std::string(name), Load(database, guard, name)).first->second;
}

void NamedQueries::BindValues(sqlite3* database, sqlite3_stmt* statement, std::string_view name,
                              const std::vector<Declaration>& declarations,
                              std::span<const Parameter> parameters) {
    if (parameters.size() != declarations.size()) {
        throw EngineError(EngineErrorCode::WrongParameters,
                          "The stored query '" + std::string(name) + "' takes " +
                              std::to_string(declarations.size()) + " values, not " +
                              std::to_string(parameters.size()) + ".");
    }
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const bool wantsNumber = declarations[i].type == Parameter::Type::Long;
        const bool isNumber = parameters[i].GetType() == Parameter::Type::Long;
        if (wantsNumber != isNumber) {
            throw EngineError(EngineErrorCode::WrongParameters,
                              "The stored query '" + std::string(name) + "' wants a " +
                                  (wantsNumber ? "number" : "text") + " for its parameter '" +
                                  declarations[i].name + "'.");
        }
        BindValue(database, statement, static_cast<int>(i) + 1, parameters[i]);
    }
}

sqlite3_stmt* NamedQueries::Bind(sqlite3* database, StatementGuard& guard, std::string_view name,
                                 std::span<const Parameter> parameters) {
    const Query& query = Find(database, guard, name);
    BindValues(database, query.statement.get(), name, query.parameters, parameters);
    return query.statement.get();
}

const std::string& NamedQueries::Body(sqlite3* database, StatementGuard& guard,
                                      std::string_view name) {
    return Find(database, guard, name).body;
}

StatementHandle NamedQueries::BindBody(sqlite3* database, StatementGuard& guard,
                                       std::string_view name, std::string_view body,
                                       std::span<const Parameter> parameters) {
    const Query& query = Find(database, guard, name);
    StatementHandle statement = Prepare(database, guard, name, body, query.parameters);
    BindValues(database, statement.get(), name, query.parameters, parameters);
    return statement;
}

}  // namespace snippetarium
