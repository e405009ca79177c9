#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

// Quoted literals in a line of source, of whatever language. A quote of either kind opens a
// literal, and the next quote of the same kind closes it unless it is escaped, that is, unless an
// odd number of backslashes stands right before it.
//
// A quote that nothing closes opens no literal. In a Basic line it is mostly the quote of the
// comment that ends the line, and the analysers look for just that.

/// The text without its literals and their quotes, the rest in its order. What follows a quote that
/// is never closed stays, with the quote:
///
///     a = "x'y" ' note        gives   a =  ' note
///     s = "a\"b";             gives   s = ;
std::string RemoveQuotedLiterals(std::string_view text);

/// True when a quote is left once the literals are removed: the line holds a comment quote or a
/// literal that does not end on it.
bool HasQuoteOutsideLiterals(std::string_view text);

}  // namespace snippetarium
