#pragma once

#include <cstddef>
#include <string_view>

namespace snippetarium {

// Looking for the words of a programming language, which are ASCII and whose case does not count.

/// The byte offset of the first occurrence, npos when there is none. Linear: meant for few and
/// short words.
std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view word);

bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view word);

}  // namespace snippetarium
