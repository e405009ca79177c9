#pragma once

#include <string_view>

#include "import/import_state.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

// A source text or a comment of the catalogue has at most 64,000 characters. The import cuts what
// is longer, says so in the report, and keeps the rest beside it, for export.

/// What of the text is stored.
std::string_view WithinUnitLimit(std::string_view text);

/// Keeps what WithinUnitLimit cuts off an owner's text; nothing where it cuts nothing. `column` is
/// the one that the text stands in: classDI, classComment, code or codeComment.
void KeepRest(Database& db, const Owner& owner, std::string_view column, std::string_view text);

/// Says that a text is too long. `unit` is "The procedure " or "The comment of the procedure ".
void ReportLongProcedure(ImportState& state, std::string_view unit, std::string_view codeName,
                         std::string_view className);
/// The same of a class: "The class " or "The comment of the class ". Once for a class and job,
/// which is told by what the report holds, so of classes with one name only the first is reported.
void ReportLongClass(ImportState& state, std::string_view unit, std::string_view className,
                     std::string_view appName);

}  // namespace snippetarium
