#include "support/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

constexpr char32_t kNoCharacter = 0xFFFFFFFFU;
constexpr char32_t kLastCharacter = 0x10FFFFU;

bool IsSurrogate(char32_t character) {
    return character >= 0xD800U && character <= 0xDFFFU;
}

/// The character whose encoding the bytes are, as the definition has it: the lead's ones count the
/// bytes, the remaining bits spell the value, and no shorter form would do.
char32_t CharacterOf(std::string_view bytes) {
    constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80U, 0x800U, 0x10000U};
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    if (bytes.size() == 1) return lead < 0x80U ? lead : kNoCharacter;
    if (bytes.size() > 4 || std::countl_one(lead) != static_cast<int>(bytes.size())) {
        return kNoCharacter;
    }
    char32_t value = lead & ((0x80U >> bytes.size()) - 1);
    for (std::size_t i = 1; i < bytes.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[i]);
        if (std::countl_one(byte) != 1) return kNoCharacter;
        value = value << 6U | (byte & 0x3FU);
    }
    const bool exists = value <= kLastCharacter && !IsSurrogate(value);
    return exists && value >= kSmallest[bytes.size()] ? value : kNoCharacter;
}

/// The length of the character that the text begins with, 0 when it begins with none.
std::size_t FirstLength(std::string_view text) {
    const auto lead = static_cast<std::uint8_t>(text[0]);
    const std::size_t length = lead < 0x80U ? 1 : static_cast<std::size_t>(std::countl_one(lead));
    const bool fits = length <= text.size();
    return fits && CharacterOf(text.substr(0, length)) != kNoCharacter ? length : 0;
}

bool IsSequenceOfCharacters(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = FirstLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t CharactersOneByOne(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(std::max<std::size_t>(1, FirstLength(text)));
    return count;
}

TEST(IsValidUtf8, IsRightForEveryTextOfUpToThreeBytes) {
    EXPECT_TRUE(IsValidUtf8(""));
    int misjudged = 0;
    std::array<char, 3> bytes{};
    for (std::size_t length = 1; length <= bytes.size(); ++length) {
        const std::string_view text(bytes.data(), length);
        for (std::uint32_t value = 0; value >> (8 * length) == 0; ++value) {
            bytes = {static_cast<char>(value), static_cast<char>(value >> 8U),
                     static_cast<char>(value >> 16U)};
            if (IsValidUtf8(text) != IsSequenceOfCharacters(text)) ++misjudged;
        }
    }
    EXPECT_EQ(misjudged, 0);
}

TEST(IsValidUtf8, IsRightForFourBytesAtTheEdgesOfEachByteClass) {
    const std::string_view edges =
        "\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xF8"
        "\xFF";
    ForEveryText(edges, 4, [](const std::string& text) {
        ASSERT_EQ(IsValidUtf8(text), IsSequenceOfCharacters(text)) << testing::PrintToString(text);
    });
}

TEST(Utf8, EveryCharacterComesBackFromItsEncoding) {
    for (char32_t character = 0; character <= kLastCharacter; ++character) {
        if (IsSurrogate(character)) continue;
        std::string text = "x";
        AppendUtf8(text, character);
        ASSERT_EQ(CharacterOf(std::string_view(text).substr(1)), character);
        std::size_t position = 1;
        ASSERT_EQ(DecodeUtf8(text, position), character);
        ASSERT_EQ(position, text.size());
    }
}

TEST(Utf8, WhatIsNoCharacterIsAppendedAsTheReplacementCharacter) {
    for (const char32_t value : {0xD800U, 0xDC7FU, 0xDD00U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        std::string text;
        AppendUtf8(text, value);
        EXPECT_EQ(text, "\xEF\xBF\xBD") << std::hex << static_cast<std::uint32_t>(value);
    }
}

// Whole and broken characters of every length, side by side.
TEST(Utf8, CountsCutsAndDecodesDamagedTextsByteByByte) {
    ForEveryText("a\xC3\xA9\xE2\x82\xED\xF0\x9F\xF4", 5, [](const std::string& text) {
        const std::size_t count = CharactersOneByOne(text);
        ASSERT_EQ(CharacterCount(text), count) << testing::PrintToString(text);

        std::string rebuilt;
        std::size_t decoded = 0;
        for (std::size_t position = 0; position < text.size(); ++decoded) {
            ASSERT_EQ(CutToCharacters(text, decoded), rebuilt) << testing::PrintToString(text);
            AppendUtf8(rebuilt, DecodeUtf8(text, position));
            ASSERT_EQ(rebuilt.size(), position) << testing::PrintToString(text);
        }
        ASSERT_EQ(decoded, count) << testing::PrintToString(text);
        ASSERT_EQ(rebuilt, text);
        ASSERT_EQ(CutToCharacters(text, count), text);
        ASSERT_EQ(CutToCharacters(text, count + 1), text);
    });
}

// ASCII is skipped eight bytes at a time: no byte may be missed or counted twice at such an edge.
TEST(Utf8, FindsTheOddCharacterAtEachPlaceAmongAscii) {
    for (std::size_t place = 0; place <= 24; ++place) {
        std::string text(24, 'a');
        text.insert(place, "\xE2\x82\xAC");
        EXPECT_TRUE(IsValidUtf8(text)) << place;
        EXPECT_EQ(CharacterCount(text), 25U) << place;
        EXPECT_FALSE(IsValidUtf8(std::string_view(text).substr(0, place + 2))) << place;
        EXPECT_EQ(CutToCharacters(text, place).size(), place);
        EXPECT_EQ(CutToCharacters(text, place + 1).size(), place + 3);
        text.erase(place + 1, 1);
        EXPECT_FALSE(IsValidUtf8(text)) << place;
        EXPECT_EQ(CharacterCount(text), 26U) << place;
    }
}

}  // namespace
}  // namespace snippetarium
