#pragma once

#include "engine/sql_tokens.h"

namespace snippetarium {

/// The table that a FROM clause gives the name `alias`: in
///
///     FROM (tblCode AS cd INNER JOIN tblClass ON cd.classID = tblClass.classID)
///
/// cd is the alias of tblCode, and tblClass, which has none, its own. The result is the table's
/// name as it is written there. `clause` is a lexer that has just read FROM. Throws EngineError
/// (Syntax) when no table has the alias.
SqlToken TableOfAlias(SqlLexer clause, const SqlToken& alias);

}  // namespace snippetarium
