#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/command.h"
#include "engine/recordset.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class Database;

// Running a named query. Its procedure number bears its name, so that one value says which query to
// run and which number to report.
//
// Every function appends the parameters to the shared command in the order given, runs it, and
// clears the command's parameters again, also when it fails. With no parameters the query is
// executed by name on the connection. A failure is reported and yields the empty result of its
// kind: 0, an empty text, false, a closed recordset.

using Parameters = std::vector<Parameter>;

Recordset ReadRecordset(Database& db, Procedure query, Parameters parameters);
/// The same for a query that looks for a text: the user can cancel it.
Recordset SearchRecordset(Database& db, Procedure query, Parameters parameters);
/// The first field of the first row; 0 without a row and for null. No real ID is 0.
std::int32_t ReadLong(Database& db, Procedure query, Parameters parameters);
/// The first field of the first row; the empty text without a row and for null.
std::string ReadText(Database& db, Procedure query, Parameters parameters);
/// True when there is a row.
bool ReadExists(Database& db, Procedure query, Parameters parameters);

}  // namespace snippetarium
