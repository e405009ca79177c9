#pragma once

namespace snippetarium {

/// What ends a word, in an entry and in a text.
constexpr bool IsWhiteSpace(char character) {
    return static_cast<unsigned char>(character) <= 0x20U;
}

/// True for the bytes of a character behind its first one.
constexpr bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace snippetarium
