#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace snippetarium {

// Small helpers for texts, shared by the search, the import, the keywords and the page view.
//
// They are pure functions that only a lack of memory can make fail, so they take no error reporter:
// the guard of the operation that calls them covers that one case. So it is with the neighbours
// quoted_literals.h, header_labels.h, arrays.h and node_key.h.
//
// A position is 1-based and counts bytes; 0 means "not found". Letters and digits are those of
// ASCII. A result of type std::string_view is a part of the text that was passed and lives as long
// as that.

/// The text with every single quote doubled, which makes it safe between the single quotes of an
/// SQL literal: "it's" gives "it''s".
std::string DoubleSingleQuotes(std::string_view text);

/// The text with each occurrence replaced, found from the left in one pass, so that what a
/// replacement brings in is not looked at again. An empty `what` occurs nowhere.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

/// The text without a quote at its start and then without one at its end. Single and double quotes
/// count alike, and the two ends need not match: "\"abc'" gives "abc", and so does "abc'".
std::string_view StripOuterQuotes(std::string_view text);

/// From the first letter or digit to the last: "  (abc_1);" gives "abc_1". Empty when there is
/// none.
std::string_view TrimToAlphanumeric(std::string_view text);

/// From the first visible byte (33 to 126) to the last, empty when there is none. Besides white
/// space this drops every character beyond ASCII at both ends, and keeps it inside.
std::string_view TrimToVisible(std::string_view text);

/// True for "0" to "9", "A" to "Z" and "a" to "z".
bool IsAlphanumeric(char character);

/// The position of the first letter or digit among the first `length` bytes; `length` + 1 when
/// there is none.
std::size_t FirstAlphanumericPos(std::string_view text, std::size_t length);

/// The position of the last letter or digit among the first `length` bytes; 0 when there is none.
std::size_t LastAlphanumericPos(std::string_view text, std::size_t length);

std::int32_t MinOf(std::int32_t a, std::int32_t b);

/// The smallest position at or after `start` (from 1) where one of the strings occurs, letter case
/// counting; 0 when none does. An empty string occurs nowhere.
std::size_t FindFirstOf(std::string_view text, std::span<const std::string_view> strings,
                        std::size_t start);

/// "64,000"
std::string Grouped(std::size_t number);
/// "1 class", "3 classes".
std::string Counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace snippetarium
