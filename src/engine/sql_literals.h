#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "engine/sql_tokens.h"

namespace snippetarium {

/// A value that stood in a statement's text.
using SqlLiteral = std::variant<std::int64_t, double, std::string>;

/// The text that a text literal means: 'it''s' is it's.
std::string TextOfLiteral(const SqlToken& literal);

/// "2001-03-14" for #3/14/2001#: dates are kept as texts in that form (engine/sql_dates.h). Throws
/// EngineError (Syntax) when it is no date.
std::string DateTextOfLiteral(const SqlToken& literal);

/// The value of a number token; nothing where it is not a plain decimal number or does not fit.
std::optional<SqlLiteral> NumberOfLiteral(const SqlToken& literal);

}  // namespace snippetarium
