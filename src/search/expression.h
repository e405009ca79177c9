#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace snippetarium {

class ErrorReporter;

// A search entry turned into the text of a condition, which a search statement then holds.
//
//     grid* and not view  ->  sw.searchWord LIKE 'grid%' and not sw.searchWord ='view'
//
// The entry is made ready and checked (search/search_entry.h), cut at single spaces into words, and
// each word is copied, where it is an operator or a bracket, or becomes a comparison. Words go into
// the condition as they were typed, single quotes too: what then does not make sense, the engine
// refuses, and the guard of search statements keeps the rest from doing harm
// (engine/statement_guard.h).

/// The columns that a condition can be about, as the search statements name them.
namespace search_column {
inline constexpr std::string_view kSearchWord = "sw.searchWord";
inline constexpr std::string_view kCodeName = "cd.CodeName";
inline constexpr std::string_view kCode = "cd.Code";
inline constexpr std::string_view kClassText = "cls.classDI";
inline constexpr std::string_view kAuthorFirstName = "au.authorFName";
inline constexpr std::string_view kAuthorMiddleName = "au.authorMName";
inline constexpr std::string_view kAuthorLastName = "au.authorLName";
}  // namespace search_column

/// The comparison for one word, to stand right behind a column's name. Of the wildcards "%", "?",
/// "*", "_" and "[" the first of this row that occurs decides: "?" is translated beside "%" and
/// alone, "*" only alone; "_" and "[" mean what they mean in a pattern.
///
///     abc  ->  ` ='abc' `        ab*  ->  ` LIKE 'ab%' `       a?b*  ->  ` LIKE 'a_b*' `
std::string TermToPredicate(std::string_view term);

/// The condition about one column; empty when the entry was refused, which the user has been told,
/// and on a failure. In names and code a word may stand anywhere ("%" on both sides); in a class's
/// text that is so for the last word alone.
///
///     alpha beta, cd.CodeName  ->  cd.CodeName LIKE '%alpha%' or cd.CodeName LIKE '%beta%'_
///
/// with a space in the place of the _.
std::string BuildFieldCondition(ErrorReporter& reporter, std::string_view entry,
                                std::string_view column);

/// What a search for owners that have several search words is made of.
struct KeywordAndCondition {
    /// The joins, then " WHERE (" and the condition, without the bracket that closes it. Empty when
    /// the entry was refused, and on a failure.
    std::string text;
    /// How many joins there are: the parts between " and " less one. Each join closes two brackets,
    /// which whoever uses the text opens.
    std::size_t partCount = 0;
};

/// Parts are divided by " and " in small letters; what is in one part is about one search word.
///
///     alpha and beta  ->  one join, and ... WHERE (sw0.searchWord ='alpha' AND sw1.searchWord
///                         ='beta'
KeywordAndCondition BuildKeywordAndCondition(ErrorReporter& reporter, std::string_view entry);

}  // namespace snippetarium
