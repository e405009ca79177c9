#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quick/day_range.h"

namespace snippetarium {

// The language of quick search.
//
//     draw grid              both words, each anywhere in a name, keyword, comment or code
//     draw or paint -grid    one of the two, and not "grid"
//     name:(draw or paint)   in the name only
//     "draw the grid"        a phrase, letter for letter but for case
//     dr*w c?lour            "*" is any letters, "?" is one; neither is ever white space
//     app:paint lang:java kind:class date:2001..2003 author:lee
//
// "not" binds more closely than "and", "and" more closely than "or"; words that nothing joins are
// joined by "and". A "-" before a word, a phrase or a bracket is "not".
//
// An entry is read while it is typed, so most of what is read is unfinished. What makes no sense
// yet is left out, and what is whole is searched for; the problems are told for those who ask.

/// What a word is looked for in. The first five find by what is written in a thing itself; the
/// others only narrow down what is found.
enum class QuickField : std::uint8_t {
    Anything,
    Name,
    Keyword,
    Comment,
    Code,
    Application,
    Class,
    Author,
    Language,
    Kind,
    Date,
};

/// True for the fields that make a thing a hit of their own.
constexpr bool IsTextField(QuickField field) {
    return field <= QuickField::Code;
}

/// The levels of the catalogue, in the order in which hits of one rank are listed.
enum class QuickKind : std::uint8_t { Application, Class, Procedure };
inline constexpr std::size_t kQuickKinds = 3;
/// Bit n stands for the kind of that number.
using QuickKindSet = std::bitset<kQuickKinds>;

/// One word, phrase or filter of an entry.
struct QuickTerm {
    QuickField field = QuickField::Anything;
    /// Without its quotation marks and its filter's name. Empty for kinds and dates.
    std::string text;
    /// In a phrase, "*" and "?" stand for themselves.
    bool isPhrase = false;
    /// Where it begins in the entry: a byte, from 1.
    std::size_t place = 0;
    QuickKindSet kinds;
    DayRange days;
};

/// A node of the tree that an entry is parsed into.
struct QuickNode {
    enum class Type : std::uint8_t { Term, And, Or, Not };
    Type type = Type::Term;
    /// For a term: its index in QuickQuery::terms.
    std::size_t term = 0;
    /// Two or more for And and Or, one for Not.
    std::vector<QuickNode> parts;
};

/// What is wrong with an entry, for people: "the bracket at 12 is never closed".
struct QuickProblem {
    std::size_t place = 0;
    std::string text;
};

struct QuickQuery {
    std::vector<QuickTerm> terms;
    /// Nothing where there is nothing to search for yet.
    std::optional<QuickNode> root;
    /// In the order of their places.
    std::vector<QuickProblem> problems;
};

/// More words than these are left out, and brackets that are nested deeper.
inline constexpr std::size_t kMostQuickTerms = 64;
inline constexpr std::size_t kDeepestQuickBracket = 40;

/// Never fails, whatever the entry is.
///
///     ParseQuickQuery("draw (grid or")  ->  And(draw, grid), and two problems
QuickQuery ParseQuickQuery(std::string_view entry);

}  // namespace snippetarium
