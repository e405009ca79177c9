#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace snippetarium {

// All text inside the program is UTF-8. "Characters" are Unicode code points.

/// True when the text is well-formed UTF-8 (no overlong forms, no surrogates, nothing above
/// U+10FFFF).
bool IsValidUtf8(std::string_view text);

/// The number of characters. A byte that belongs to no well-formed character counts as one.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters of the text, all of it when it has no more. Never cuts a character.
std::string_view CutToCharacters(std::string_view text, std::size_t count);

/// The character at `position` (a byte offset below the text's size), which then moves behind it.
/// A malformed byte b gives U+DC00 + b, a value no well-formed text yields, so that every text,
/// also a damaged one, has a decoding of its own.
char32_t DecodeUtf8(std::string_view text, std::size_t& position);

/// Appends what DecodeUtf8 read: a character, or for U+DC80 to U+DCFF the malformed byte itself, so
/// that decoding a text and appending it again changes nothing. A value that is neither (another
/// surrogate, one above U+10FFFF) becomes U+FFFD.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace snippetarium
