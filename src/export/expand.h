#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/recordset.h"
#include "export/marker_expansion.h"
#include "export/whole_texts.h"

namespace snippetarium {

class Database;

// A class's text with the class's procedures, as the catalogue has them, in the place of their
// markers (export/marker_expansion.h). Guarded; the empty text on a failure.

std::string ExpandVbProcedures(Database& db, std::string_view classText, std::int32_t classID);
std::string ExpandCProcedures(Database& db, std::string_view classText, std::int32_t classID);
std::string ExpandPageProcedures(Database& db, std::string_view classText, std::int32_t classID);

/// The procedure of a row with codeID, codeName, codeComment and code, each text as long as it was
/// imported.
ProcedureText ProcedureTextOf(const Recordset& row, const WholeTexts& whole, Remarks& remarks);

/// The procedures of a class in the order of their file.
std::vector<ProcedureText> ReadProcedureTexts(Database& db, std::int32_t classID,
                                              const WholeTexts& whole, Remarks& remarks);

}  // namespace snippetarium
