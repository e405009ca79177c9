#include "support/utf8.h"

#include <cstdint>
#include <cstring>

namespace snippetarium {

namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080U;
constexpr char32_t kMalformedByte = 0xDC00U;  // plus the byte: what such a byte is decoded to
constexpr char32_t kReplacement = 0xFFFDU;

unsigned char ByteAt(std::string_view text, std::size_t position) {
    return static_cast<unsigned char>(text[position]);
}

bool IsSurrogate(char32_t character) {
    return character >= 0xD800U && character <= 0xDFFFU;
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

/// C0 and C1 would be overlong.
bool IsTwoByteLead(unsigned char byte) {
    return byte >= 0xC2U && byte <= 0xDFU;
}

/// The length in bytes of the well-formed character at `position`, 0 when there is none.
std::size_t WellFormedLength(std::string_view text, std::size_t position) {
    const unsigned char lead = ByteAt(text, position);
    if (lead < 0x80U) return 1;
    // Below C2 come stray continuations and overlong two-byte forms, above F4 what Unicode lacks.
    if (lead < 0xC2U || lead > 0xF4U) return 0;
    const std::size_t length = lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : 4;
    if (text.size() - position < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsContinuation(ByteAt(text, position + i))) return 0;
    }
    const unsigned char second = ByteAt(text, position + 1);
    if (lead == 0xE0U && second < 0xA0U) return 0;  // overlong
    if (lead == 0xEDU && second > 0x9FU) return 0;  // surrogate
    if (lead == 0xF0U && second < 0x90U) return 0;  // overlong
    if (lead == 0xF4U && second > 0x8FU) return 0;  // above U+10FFFF
    return length;
}

/// Behind the run of ASCII bytes that starts at `position`, found eight bytes at a time.
std::size_t SkipAscii(std::string_view text, std::size_t position) {
    while (text.size() - position >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + position, sizeof word);
        if ((word & kHighBits) != 0) break;
        position += sizeof word;
    }
    while (position < text.size() && ByteAt(text, position) < 0x80U)
        ++position;
    return position;
}

std::size_t NextCharacter(std::string_view text, std::size_t position) {
    const std::size_t length = WellFormedLength(text, position);
    return position + (length == 0 ? 1 : length);
}

}  // namespace

bool IsValidUtf8(std::string_view text) {
    for (std::size_t i = SkipAscii(text, 0); i < text.size(); i = SkipAscii(text, i)) {
        // Most alphabets' letters are two bytes each and stand in words: no need to ask for ASCII
        // behind every one.
        while (i + 1 < text.size() && IsTwoByteLead(ByteAt(text, i)) &&
               IsContinuation(ByteAt(text, i + 1))) {
            i += 2;
        }
        if (i == text.size() || ByteAt(text, i) < 0x80U) continue;
        const std::size_t length = WellFormedLength(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t next = SkipAscii(text, i);
        count += next - i;
        i = next;
        if (i == text.size()) break;
        i = NextCharacter(text, i);
        ++count;
    }
    return count;
}

std::string_view CutToCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text;
    std::size_t end = 0;
    while (count > 0 && end < text.size()) {
        end = NextCharacter(text, end);
        --count;
    }
    return text.substr(0, end);
}

char32_t DecodeUtf8(std::string_view text, std::size_t& position) {
    const unsigned char lead = ByteAt(text, position);
    const std::size_t length = WellFormedLength(text, position);
    if (length <= 1) {
        ++position;
        return length == 1 ? lead : kMalformedByte + lead;
    }
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        character = character << 6U | (ByteAt(text, position + i) & 0x3FU);
    }
    position += length;
    return character;
}

void AppendUtf8(std::string& text, char32_t character) {
    if (character >= kMalformedByte + 0x80U && character <= kMalformedByte + 0xFFU) {
        text += static_cast<char>(character - kMalformedByte);
        return;
    }
    if (IsSurrogate(character) || character > 0x10FFFFU) character = kReplacement;
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80U) {
        append(character);
    } else if (character < 0x800U) {
        append(0xC0U | character >> 6U);
        append(0x80U | (character & 0x3FU));
    } else if (character < 0x10000U) {
        append(0xE0U | character >> 12U);
        append(0x80U | (character >> 6U & 0x3FU));
        append(0x80U | (character & 0x3FU));
    } else {
        append(0xF0U | character >> 18U);
        append(0x80U | (character >> 12U & 0x3FU));
        append(0x80U | (character >> 6U & 0x3FU));
        append(0x80U | (character & 0x3FU));
    }
}

}  // namespace snippetarium
