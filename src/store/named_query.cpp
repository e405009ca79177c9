#include "store/named_query.h"

#include <utility>

#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

Recordset RunCommand(Database& db, Procedure query, Parameters parameters,
                     Recordset (Command::*run)()) {
    struct Clearing {
        ~Clearing() { ClearParameters(database); }
        Database& database;
    } clearing{db};
    Command& command = db.SharedCommand();
    command.SetText(ProcedureName(query));
    for (Parameter& parameter : parameters)
        command.Append(std::move(parameter));
    return (command.*run)();
}

Recordset Run(Database& db, Procedure query, Parameters parameters) {
    if (parameters.empty()) return db.GetConnection().Execute(ProcedureName(query));
    return RunCommand(db, query, std::move(parameters), &Command::Execute);
}

}  // namespace

Recordset ReadRecordset(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query, [&] { return Run(db, query, std::move(parameters)); });
}

Recordset SearchRecordset(Database& db, Procedure query, Parameters parameters) {
    return Guarded(db.Reporter(), query, [&] {
        return RunCommand(db, query, std::move(parameters), &Command::ExecuteSearch);
    });
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
