#include "support/case_fold.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/utf8.h"
#include "tools/case_fold_generator.h"

namespace snippetarium {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

std::size_t Utf8Length(char32_t character) {
    std::string text;
    AppendUtf8(text, character);
    return text.size();
}

/// What CompareFolded compares, written out as a list.
std::u32string FoldedCharacters(std::string_view text) {
    std::u32string characters;
    for (std::size_t position = 0; position < text.size();) {
        characters += FoldCase(DecodeUtf8(text, position));
    }
    return characters;
}

int Sign(int value) {
    return (value > 0) - (value < 0);
}

/// All texts of up to `length` pieces, the empty one first.
std::vector<std::string> TextsUpTo(std::size_t length, const std::vector<std::string>& pieces) {
    std::vector<std::string> texts = {""};
    for (std::size_t done = 0, round = 0; round < length; ++round) {
        const std::size_t end = texts.size();
        for (; done < end; ++done) {
            for (const std::string& piece : pieces)
                texts.push_back(texts[done] + piece);
        }
    }
    return texts;
}

TEST(CaseFold, TheCommittedTableIsTheOneThatTheGeneratorMakes) {
    std::ifstream file(CASE_FOLD_TABLE, std::ios::binary);
    const std::string committed(std::istreambuf_iterator<char>(file), {});
    EXPECT_TRUE(committed == MakeCaseFoldTable())
        << CASE_FOLD_TABLE << " differs. The rule must not change once catalogues are in use.";
}

TEST(CaseFold, FoldsLettersOfEveryScriptWithCase) {
    const struct {
        const char* text;
        const char* folded;
    } cases[] = {
        {"", ""},
        {"AZaz09@[`{", "azaz09@[`{"},
        {"ÀÖØÞ × ÿŸ", "àöøþ × ÿÿ"},
        {"ĀĽŽ Ǆǅǆ", "āľž ǆǆǆ"},
        {"ΑΩΆ Σσς", "αωά σσσ"},
        {"АЯЁЖ Ӏ", "аяёж ӏ"},
        {"ԱՖ", "աֆ"},
        {"ႠᲐ", "ⴀა"},
        {"Ꭰꭰ Ᏸᏸ", "ᎠᎠ ᏰᏰ"},
        {"ẠỸ", "ạỹ"},
        {"ⅠⒶⰀＡ", "ⅰⓐⰰａ"},
        {"\U00010400\U0001E900\U00010C80", "\U00010428\U0001E922\U00010CC0"},
        {"漢字かなกअ", "漢字かなกअ"},
    };
    for (const auto& [text, folded] : cases) {
        EXPECT_EQ(FoldCase(text), folded) << text;
        EXPECT_TRUE(EqualFolded(text, folded)) << text;
    }
}

TEST(CaseFold, LeavesPairsOfDifferentLengthAndLaterAdditionsAlone) {
    const struct {
        const char32_t character;
        const char32_t lookAlike;
    } cases[] = {
        {0x212A, 'k'},     // Kelvin sign
        {0x017F, 's'},     // long s
        {0x0130, 'i'},     // capital i with a dot
        {0x0131, 'i'},     // small i without one
        {0x1E9E, 0x00DF},  // sharp s
        {0x2126, 0x03C9},  // Ohm sign
        {0x212B, 0x00E5},  // Angstrom sign
        {0x023A, 0x2C65},  // A with stroke
        {0xFB05, 0xFB06},  // ligatures: a pair since Unicode 15.1
        {0xA7CB, 0x0264},  // a letter of Unicode 16
    };
    for (const auto& [character, lookAlike] : cases) {
        EXPECT_EQ(FoldCase(character), character);
        EXPECT_NE(FoldCase(lookAlike), FoldCase(character));
    }
}

// The substring search and the comparison rely on each of these.
TEST(CaseFold, EveryCharacterKeepsItsLengthAndItsSideOfAscii) {
    for (char32_t character = 0; character <= kLastCharacter; ++character) {
        const char32_t folded = FoldCase(character);
        if (folded == character) continue;
        ASSERT_EQ(FoldCase(folded), folded) << std::hex << +character;
        ASSERT_EQ(Utf8Length(folded), Utf8Length(character)) << std::hex << +character;
        ASSERT_EQ(folded < 0x80, character < 0x80) << std::hex << +character;
    }
    for (const char32_t noCharacter : {0xD800U, 0xDC80U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(FoldCase(noCharacter), noCharacter);
    }
}

TEST(CaseFold, OtherCasesAreAllThatFoldToACharacter) {
    constexpr char32_t kBehindLastLetterWithCase = 0x1EA00;
    std::map<char32_t, std::u32string> expected;
    for (char32_t character = 0; character <= kLastCharacter; ++character) {
        const char32_t folded = FoldCase(character);
        if (folded != character) expected[folded] += character;
    }
    for (char32_t character = 0; character < kBehindLastLetterWithCase; ++character) {
        ASSERT_EQ(OtherCases(character), expected[character]) << std::hex << +character;
    }
}

TEST(CaseFold, MalformedBytesStayAsTheyAre) {
    for (const std::string text : {"\xC3", "a\x84\xC3", "\xE1\xBA", "\xC0\xC1", "\xED\xA0\x80",
                                   "\xF4\x90\x80\x80", "\xC3\xC3"}) {
        EXPECT_EQ(FoldCase(text), text);
        EXPECT_EQ(FoldCase(text + "Ä"), text + "ä");
    }
}

TEST(CompareFolded, OrdersEveryShortTextAsItsFoldedCharacters) {
    // The bytes of Ä and ä, a long lead byte, what makes a surrogate, and letters.
    const auto texts = TextsUpTo(3, {"a", "B", "b", "\xC3", "\x84", "\xA4", "\xED", "ж", "Ж"});
    std::vector<std::u32string> folded;
    folded.reserve(texts.size());
    for (const std::string& text : texts)
        folded.push_back(FoldedCharacters(text));
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = 0; j < texts.size(); ++j) {
            const int order = Sign(folded[i].compare(folded[j]));
            ASSERT_EQ(CompareFolded(texts[i], texts[j]), order) << texts[i] << " " << texts[j];
            ASSERT_EQ(EqualFolded(texts[i], texts[j]), order == 0) << texts[i] << " " << texts[j];
        }
        ASSERT_EQ(FoldedCharacters(FoldCase(texts[i])), folded[i]) << texts[i];
    }
}

TEST(CompareFolded, OrdersLongTextsThatDifferLittle) {
    std::mt19937 random(1);
    const std::string pieces[] = {"a", "A", "é", "É", "\xC3", "z", "\U00010400", "\U00010428"};
    const auto makeText = [&](std::size_t count) {
        std::string text;
        while (count-- > 0)
            text += pieces[random() % std::size(pieces)];
        return text;
    };
    for (int round = 0; round < 20'000; ++round) {
        const std::string beginning = makeText(random() % 40);
        const std::string a = beginning + makeText(random() % 3);
        const std::string b = FoldCase(beginning) + makeText(random() % 3);
        ASSERT_EQ(CompareFolded(a, b), Sign(FoldedCharacters(a).compare(FoldedCharacters(b))));
    }
}

TEST(EqualsIgnoringAsciiCase, FoldsAToZAlone) {
    EXPECT_TRUE(EqualsIgnoringAsciiCase("", ""));
    EXPECT_TRUE(EqualsIgnoringAsciiCase("Function AZ", "fUNCTION az"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase("Sub", "Subs"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase("Subs", "Sub"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase("@[", "`{"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase("Ä", "ä"));
}

}  // namespace
}  // namespace snippetarium
