#pragma once

#include <iosfwd>

#include "cli/json.h"
#include "engine/recordset.h"

namespace snippetarium {

/// Prints the rows as a table in which long texts are cut, and their number.
void PrintRows(std::ostream& output, Recordset rows);

/// The rows as a list of objects, each field whole under its column's name.
Json RowsDocument(Recordset rows);

}  // namespace snippetarium
