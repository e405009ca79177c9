#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

class ErrorReporter;

// What the user types into the search form, made ready to be cut into words:
//
//     grid view            grid or view
//     grid and view        grid and view
//     (grid or view        refused: a bracket is open
//
// The entry is rewritten in place. Nothing here is a parser: the words, operators and brackets are
// handed over to the engine in the order in which they were typed, and the engine judges them.
// Several habits of these steps look odd, and are kept as they have always been; decisions.md
// lists them.

/// True for "and", "or" and "not"; letter case does not count.
bool IsOperator(std::string_view word);

/// True when the word begins with a round bracket.
bool IsBracket(std::string_view word);

/// Joins by "or" any two neighbours of which neither is an operator. Words end at each single
/// space, so that two spaces have an empty word between them. Brackets and quotation marks are no
/// operators.
///
///     alpha beta   ->  alpha or beta
///     not alpha    ->  not alpha
///     a  b         ->  a or  or b
std::string InsertImplicitOr(std::string_view entry);

/// Counts the brackets and puts spaces around them; false when they are not balanced. A space is
/// put before an opening bracket and behind each bracket, never before a closing one, which so
/// stays with the word before it. The byte behind a bracket is never a bracket to be counted: of
/// two opening ones in a row only the first counts.
///
///     x(a or b)  ->  x ( a or b)_    with a space in the place of the _
bool CheckBrackets(std::string& entry);

/// Puts spaces around each pair of quotation marks; false when one is left over. An entry that
/// begins with one is a failure, which is reported: whoever calls takes the outer ones off.
bool CheckQuotes(ErrorReporter& reporter, std::string& entry);

/// Both checks. True when the entry failed one of them; the user has then been told which.
[[nodiscard]] bool ValidateSearchEntry(ErrorReporter& reporter, std::string& entry);

}  // namespace snippetarium
