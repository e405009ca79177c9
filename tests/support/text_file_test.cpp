#include "support/text_file.h"

#include <gtest/gtest.h>

#include <random>
#include <span>

#include "support/encoding.h"
#include "support/error.h"
#include "support/utf8.h"
#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

using namespace std::string_literals;

constexpr std::string_view kFallbacks[] = {"windows-1252", "windows-1251", "Shift_JIS",
                                           "GBK",          "UTF-8",        "UTF-16LE"};
const std::string kMarks[] = {"",         "\xEF\xBB\xBF",      "\xFF\xFE"s,
                              "\xFE\xFF", "\xFF\xFE\x00\x00"s, "\x00\x00\xFE\xFF"s};

/// What every text in the catalogue is: UTF-8 without NUL, each LF behind a CR.
bool IsCatalogueText(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\0' || (text[i] == '\n' && (i == 0 || text[i - 1] != '\r'))) return false;
    }
    return IsValidUtf8(text);
}

/// The promise: through a form that was stored and read again, the bytes come back.
bool ComesBack(const std::string& bytes, std::string_view fallback) {
    const TextFile file = DecodeTextFile(bytes, fallback);
    const SourceForm form = SourceForm::Parse(file.form.Serialise());
    const EncodedTextFile encoded = EncodeTextFile(file.text, form);
    return form == file.form && encoded.bytes == bytes && encoded.unencodableLines.Empty() &&
           IsCatalogueText(file.text);
}

TEST(TextFile, EveryShortFileComesBackByteForByte) {
    constexpr std::size_t kLength = 6;
    ForEveryText("a\r\n\0\xE9\x81\xC3"s, kLength, [](const std::string& bytes) {
        // The longest are the most by far: a single-byte and a double-byte page do for them.
        const std::size_t count = bytes.size() == kLength ? 2 : std::size(kFallbacks);
        for (const std::string_view fallback : std::span(kFallbacks).first(count)) {
            EXPECT_TRUE(ComesBack(bytes, fallback))
                << fallback << " " << ::testing::PrintToString(bytes);
        }
    });
}

TEST(TextFile, RandomBytesComeBackBehindEveryByteOrderMark) {
    std::mt19937 random(20010314);
    constexpr unsigned kVarieties[] = {2, 16, 256};
    for (int round = 0; round < 3000; ++round) {
        const unsigned variety = kVarieties[random() % 3];
        std::string bytes = kMarks[random() % std::size(kMarks)];
        for (auto left = random() % 40; left > 0; --left) {
            const bool isLineEnd = random() % 6 == 0;
            bytes +=
                isLineEnd ? "\r\n\0"[random() % 3] : static_cast<char>(random() % variety * 255);
        }
        const std::string_view fallback = kFallbacks[random() % std::size(kFallbacks)];
        ASSERT_TRUE(ComesBack(bytes, fallback))
            << fallback << " " << ::testing::PrintToString(bytes);
    }
}

struct Reading {
    std::string bytes;
    std::string_view fallback;
    std::string text;
    std::string form;
};

TEST(TextFile, FilesAreReadInTheirEncodingAndTheFormSaysWhichItWas) {
    // clang-format off
    const Reading readings[] = {
        {"", "windows-1252", "", "encoding=UTF-8;mark=no;ends=crlf;last=ended"},
        {"\xEF\xBB\xBF", "windows-1252", "", "encoding=UTF-8;mark=yes;ends=crlf;last=ended"},
        {"a\nb\r\nc\n", "windows-1252", "a\r\nb\r\nc\r\n", "encoding=UTF-8;mark=no;ends=lf;last=ended;others=2"},
        {"a\r\r\nb\r", "windows-1252", "a\r\r\nb\r", "encoding=UTF-8;mark=no;ends=crlf;last=open"},
        {"Gr\xC3\xB6\xC3\x9F" "e", "windows-1252", "Größe", "encoding=UTF-8;mark=no;ends=crlf;last=open"},
        {"Gr\xF6\xDF" "e\r\n", "windows-1252", "Größe\r\n", "encoding=windows-1252;mark=no;ends=crlf;last=ended"},
        {"\xCF\xF0\xE8\n", "cp1251", "При\r\n", "encoding=cp1251;mark=no;ends=lf;last=ended"},
        {"\x83\x5C\n", "Shift_JIS", "ソ\r\n", "encoding=Shift_JIS;mark=no;ends=lf;last=ended"},
        {"\xFF\xFE" "a\0\n\0"s, "windows-1252", "a\r\n", "encoding=UTF-16LE;mark=yes;ends=lf;last=ended"},
        {"\xFE\xFF\0a\0\r\0\n"s, "windows-1252", "a\r\n", "encoding=UTF-16BE;mark=yes;ends=crlf;last=ended"},
        {"\xFF\xFE\0\0" "a\0\0\0"s, "windows-1252", "a", "encoding=UTF-32LE;mark=yes;ends=crlf;last=open"},
        {"\0\0\xFE\xFF\0\0\0a"s, "windows-1252", "a", "encoding=UTF-32BE;mark=yes;ends=crlf;last=open"},
        {"a\0\n\0"s, "UTF-16LE", "a\r\n", "encoding=UTF-16LE;mark=no;ends=lf;last=ended"},
        {"ab\n", "UTF-16LE", "ab\r\n", "encoding=UTF-8;mark=no;ends=lf;last=ended"},
    };
    // clang-format on
    for (const Reading& row : readings) {
        const TextFile file = DecodeTextFile(row.bytes, row.fallback);
        EXPECT_EQ(file.text, row.text) << row.form;
        EXPECT_EQ(file.form.Serialise(), row.form);
        EXPECT_TRUE(file.nulLines.Empty() && file.undecodableLines.Empty()) << row.form;
    }
}

TEST(TextFile, ANulOrABadByteEndsNothingAndItsLineIsNamed) {
    const TextFile file = DecodeTextFile("Sub A()\n\0\x81\xFE\nEnd Sub\0\n"s, "Shift_JIS");
    EXPECT_TRUE(file.text.ends_with("\U0010FE00\r\n"));
    EXPECT_EQ(file.nulLines.ToText(), "2-3");
    EXPECT_EQ(file.undecodableLines.ToText(), "2");
}

TEST(TextFile, AnUnknownFallbackIsRefusedOnlyWhereItIsNeeded) {
    EXPECT_EQ(DecodeTextFile("plain", "nonsense").text, "plain");
    EXPECT_THROW(DecodeTextFile("\xE9", "nonsense"), Error);
    SourceForm form;
    form.encoding = "nonsense";
    EXPECT_THROW(EncodeTextFile("a", form), Error);
}

TEST(TextFile, AnEditedTextKeepsTheFormOfItsFile) {
    const TextFile file = DecodeTextFile(
        "\xFF\xFE"
        "a\0\n\0b\0"s);
    EXPECT_EQ(EncodeTextFile("x\r\ny\r\n", file.form).bytes, "\xFF\xFEx\0\n\0y\0"s);

    // A bad byte stays where it is in the text that is edited around it.
    TextFile japanese = DecodeTextFile("\x83\x5C\n\x81", "Shift_JIS");
    japanese.text = "new\r\n" + japanese.text + "!";
    EXPECT_EQ(EncodeTextFile(japanese.text, japanese.form).bytes, "new\n\x83\x5C\n\x81!");
}

TEST(TextFile, ACharacterThatTheEncodingLacksMakesTheFileUtf8RatherThanBeingLost) {
    TextFile file = DecodeTextFile(
        "Gr\xF6\xDF"
        "e\n");
    file.text += "中\r\n";
    const EncodedTextFile encoded = EncodeTextFile(file.text, file.form);
    EXPECT_EQ(encoded.unencodableLines.ToText(), "2");
    EXPECT_EQ(encoded.bytes, "\xEF\xBB\xBFGröße\n中\n");
    EXPECT_EQ(DecodeTextFile(encoded.bytes).text, file.text);
}

TEST(SourceForm, MissingFieldsHaveTheirDefaults) {
    EXPECT_EQ(SourceForm::Parse(""), SourceForm());
    EXPECT_EQ(SourceForm::Parse("ends=lf").lineEnds.most, LineEnd::Lf);
    EXPECT_EQ(SourceForm::Parse("last=open;encoding=GBK").encoding, "GBK");
}

TEST(SourceForm, DamagedTextsAreRefused) {
    for (const char* text : {"encoding", "encoding=", "mark=maybe", "ends=cr", "last=", "others=x",
                             "colour=red", ";", "mark=yes;;"}) {
        EXPECT_THROW(SourceForm::Parse(text), Error) << text;
    }
}

}  // namespace
}  // namespace snippetarium
