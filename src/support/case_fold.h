#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "support/utf8.h"

namespace snippetarium {

// Case folding: the one rule by which the whole program takes two spellings of a letter for the
// same.
//
// The rule can never change. Indexes in users' catalogue files are sorted by it, and an index
// sorted by another rule finds no rows. So the table is the program's own (case_fold_table.inc),
// not that of whichever Unicode library is installed, and it holds no character younger than
// Unicode 15.0: what was added later folds to itself.
//
// Folding replaces one character by one character of the same length in UTF-8, so a place in a
// folded text is the same place in the text itself, and two texts that are equal but for case have
// the same length. The few pairs of different length are left alone: the Kelvin sign is not a "k",
// the long s not an "s", and U+0130 and U+0131 (dotted and dotless i) are letters of their own.

/// The folded form of a character, mostly its small letter; the character itself where there is
/// none. Any value may be passed, also one that is no character.
char32_t FoldCase(char32_t character);

/// The text with each character folded. Its length stays the same; malformed bytes stay as they
/// are.
std::string FoldCase(std::string_view text);

/// The folded form of the character at `position` (a byte offset below the text's size), which then
/// moves behind it. A malformed byte gives what DecodeUtf8 gives.
inline char32_t NextFolded(std::string_view text, std::size_t& position) {
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte >= 0x80U) return FoldCase(DecodeUtf8(text, position));
    ++position;
    return byte >= 'A' && byte <= 'Z' ? byte + 0x20U : byte;
}

/// Every other character that folds to `folded`: "K" for "k", two capitals for U+03B8 (theta).
/// Empty when there is none, also when `folded` is itself no folded form.
std::u32string OtherCases(char32_t folded);

/// Negative, zero or positive as `a` sorts before, with or behind `b`: by the folded characters'
/// code points, a text before those it is the beginning of. A total order over all texts, malformed
/// ones included, in which exactly the texts with equal folded forms are equal.
int CompareFolded(std::string_view a, std::string_view b);

/// True when the texts differ in case only.
bool EqualFolded(std::string_view a, std::string_view b);

/// Folds A to Z and nothing else: for keywords of programming languages and the like.
constexpr char AsciiLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// True when the texts differ in the case of A to Z only.
bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

}  // namespace snippetarium
