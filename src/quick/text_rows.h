#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "quick/id_set.h"
#include "quick/levels.h"

namespace snippetarium {

class Database;

/// IDs of rows, all that hold a text among them; nothing where it is not known which do.
using TextRows = std::optional<std::vector<std::int64_t>>;

/// The rows of a level whose comment or code may hold a literal, without regard to case.
TextRows RowsWithText(Database& db, QuickKind kind, QuickText text, std::string_view literal);

/// The rows of a block whose comment or code holds a literal: read one by one, for literals that
/// the text index does not know. All rows where the literal is empty.
BlockMask RowsOfBlockWithText(Database& db, QuickKind kind, QuickText text,
                              std::string_view literal, std::int32_t block);

}  // namespace snippetarium
