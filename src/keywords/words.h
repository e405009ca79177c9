#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "keywords/noise_words.h"

namespace snippetarium {

// Breaking a keyword string into the search words by which its owner is found:
//
//     Grid3, 2nd-hand; Form_Load    gives    Grid3 hand Form Load
//
// Punctuation separates words, noise words and what begins with a digit are dropped, and each word
// is kept once. An apostrophe inside a word stays: "don't" is a word.
//
// Pure functions like those of support/text.h: only a lack of memory can make them fail, and the
// guard of the operation that calls them covers that.

/// The text without the blanks at both ends.
std::string_view TrimBlanks(std::string_view text);

/// The opposite of DoubleSingleQuotes: each pair of single quotes becomes one.
std::string UndoubleSingleQuotes(std::string_view doubledText);

/// The parts between blanks; none of them is empty. They live as long as the text.
std::vector<std::string_view> SplitWords(std::string_view words);

/// The text with blanks in the place of punctuation. The quotes of the text are doubled, and so are
/// those of the result. Three blanks in a row become one, then two become one, once each: longer
/// runs can leave a double blank, and there may be a blank at either end.
std::string NormaliseWords(std::string_view doubledText);

/// NormaliseWords for a text as it was typed: "'Grid' isn't-it" gives "Grid isn't it".
std::string SeparateWords(std::string_view text);

/// True for a decimal number and nothing else: perhaps a sign, digits with at most one point among
/// or around them, perhaps an exponent ("-5", ".5", "2.", "+1.5e-3"). No blanks, no other signs.
bool IsNumeric(std::string_view text);

/// The parts of the text between the separators (letter case does not count), without the blanks
/// around them, with the separator between them again. Left out are empty parts, numbers, what
/// begins with a digit, and noise words. An empty separator separates nothing.
std::string FilterWords(std::string_view text, std::string_view separator, const NoiseWords& noise);

/// The words with one blank between them, each where it occurs first; letter case does not count.
std::string RemoveDuplicateWords(std::string_view words);

/// The search words of a keyword string, both as typed, with one blank between them.
std::string KeywordToSearchWords(std::string_view keyword, const NoiseWords& noise);

}  // namespace snippetarium
