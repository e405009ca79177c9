#include "store/named_query.h"

#include <utility>

#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

Recordset Run(Database& db, Procedure query, Parameters parameters) {
    const std::string_view name = ProcedureName(query);
    if (parameters.empty()) return db.GetConnection().Execute(name);
    struct Clearing {
        ~Clearing() { ClearParameters(database); }
        Database& database;
    } clearing{db};
    Command& command = db.SharedCommand();
    command.SetText(name);
    for (Parameter& parameter : parameters)
        command.Append(std::move(parameter));
    return command.Execute();
}

}  // namespace

Recordset ReadRecordset(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query, [&] { return Run(db, query, std::move(parameters)); });
}

std::int32_t ReadLong(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query, [&] {
        const Recordset row = Run(db, query, std::move(parameters));
        return row.EndOfFile() ? 0 : row[std::size_t{0}].Long();
    });
}

std::string ReadText(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query, [&] {
        const Recordset row = Run(db, query, std::move(parameters));
        return row.EndOfFile() ? std::string() : row[std::size_t{0}].Text();
    });
}

bool ReadExists(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query,
                   [&] { return !Run(db, query, std::move(parameters)).EndOfFile(); });
}

}  // namespace snippetarium
