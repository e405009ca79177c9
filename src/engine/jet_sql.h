#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql_literals.h"

namespace snippetarium {

enum class StatementVerb : std::uint8_t { Select, Insert, Update, Delete, Alter };

struct TranslationOptions {
    /// Names that stand for parameters where they occur in square brackets; letter case does not
    /// count.
    std::vector<std::string> parameterNames = {};
    /// The columns by which a table's rows are known. No function, or no column: by the number that
    /// the engine gives each row.
    std::function<std::vector<std::string>(std::string_view table)> keyColumnsOf = {};
};

/// A statement as the engine below understands it.
struct Translation {
    StatementVerb verb = StatementVerb::Select;
    /// Exactly one statement, without a semicolon. ?1 to ?N are the N names of the options; behind
    /// them come ?N+1 and so on for the values in `parameters`.
    std::string sql;
    /// The values taken out of an INSERT, UPDATE or DELETE, at most 250, in the order of the text.
    std::vector<SqlLiteral> parameters;
    /// The names of the options that occur, each once, in the order in which they first occur.
    std::vector<std::string> parameterNames;
};

/// Translates one statement from the dialect that the catalogue's rules, its stored queries and its
/// search language speak. One pass; the statement is valid UTF-8 without NUL bytes. What changes:
///
/// - #3/14/2001# becomes '2001-03-14' (engine/sql_dates.h).
/// - DELETE x.* FROM a x INNER JOIN b ... becomes
///   DELETE FROM a WHERE (rowid) IN (SELECT x.rowid FROM a x INNER JOIN b ...), with the table's
///   key columns where its rows have no numbers; DELETE * FROM loses its star.
/// - Brackets that group joins directly behind FROM become blanks (engine/join_brackets.h).
/// - SELECT TOP 10 ... becomes SELECT ... LIMIT 10. Rows equal to the tenth are not added. Only for
///   the first SELECT of a statement without UNION.
/// - [name] becomes a parameter if it is one of the options' names. As a part of a longer name
///   (cd.[name]) and behind AS it stays a name, like all other bracketed names.
/// - From INSERT, UPDATE and DELETE, texts, dates and decimal numbers are taken out and stand in
///   `parameters`, so that statements that differ only in their values have the same text and are
///   prepared once.
///
/// Everything else stays as it is, whether it makes sense or not: that is for the engine to say.
/// Throws EngineError: InvalidStatement where the text does not begin with SELECT, INSERT, UPDATE,
/// DELETE or ALTER TABLE; TextAfterStatement where something follows its semicolon; QueryTooComplex
/// where more than 100 brackets are open; Syntax for all else that is refused: comments, double
/// quotation marks, parameter signs, literals and brackets without their ends, impossible dates,
/// malformed text.
Translation Translate(std::string_view text, const TranslationOptions& options);

}  // namespace snippetarium
