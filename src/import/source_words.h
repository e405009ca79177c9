#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace snippetarium {

// What the analysers ask of single bytes and of words, whatever the language.

/// White space, and control characters too.
constexpr bool IsBlank(char character) {
    return static_cast<unsigned char>(character) <= ' ';
}

constexpr bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// A letter, a digit or "_". A byte above 127 counts as a letter.
constexpr bool IsWordPart(char character) {
    return character == '_' || IsDigit(character) || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || static_cast<unsigned char>(character) > 127;
}

/// Whether the word is in a table of words, in the same letters.
template <std::size_t N>
bool IsOneOf(std::string_view word, const std::string_view (&words)[N]) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

}  // namespace snippetarium
