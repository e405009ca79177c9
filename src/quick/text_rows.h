#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/id_set.h"
#include "engine/text_scan.h"
#include "quick/levels.h"
#include "quick/plan.h"

namespace snippetarium {

class Database;

/// A scan for the rows of a level whose name, comment or code may hold a literal. Nothing where the
/// level has no such text. Rows whose name or comment is the literal and nothing else may be
/// missing.
std::optional<TextScan> ScanFor(QuickKind kind, QuickText text, std::string_view literal);

/// A scan for the strings of keywords that may hold a literal.
TextScan ScanKeywords(std::string_view literal);

/// Adds those to the rows that such a scan found. The literal is what was scanned for.
void AddRowsThatAre(Database& db, QuickKind kind, QuickText text, std::string_view literal,
                    CandidateRows& rows);

/// Texts are looked through in parts of a block, since a code can be long.
inline constexpr std::int32_t kPartsOfBlock = 8;

/// The rows of a part of a block whose comment or code holds a literal: read one by one, for
/// literals that the text index does not know. All rows where the literal is empty.
BlockMask RowsOfPartWithText(Database& db, QuickKind kind, QuickText text, std::string_view literal,
                             std::int32_t block, std::int32_t part);

}  // namespace snippetarium
