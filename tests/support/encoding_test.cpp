#include "support/encoding.h"

#include <gtest/gtest.h>

#include "support/error.h"
#include "support/utf8.h"

namespace snippetarium {
namespace {

using namespace std::string_literals;

constexpr std::string_view kPages[] = {"windows-1252", "windows-1251", "Shift_JIS", "GBK",
                                       "Big5",         "EUC-JP",       "EUC-KR",    "gb18030",
                                       "ISO-8859-1",   "US-ASCII",     "ibm-037",   "UTF-8",
                                       "UTF-16LE",     "UTF-16BE",     "UTF-32LE",  "UTF-32BE"};

std::string StandIns(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        AppendUtf8(text, kFirstStandIn + static_cast<unsigned char>(byte));
    }
    return text;
}

/// True when the bytes come back from a text that is UTF-8 without NUL.
bool ComesBack(const std::string& bytes, Encoding& encoding) {
    const DecodedText decoded = Decode(bytes, encoding);
    const EncodedText encoded = Encode(decoded.text, encoding);
    return encoded.bytes == bytes && encoded.unencodableLines.Empty() &&
           IsValidUtf8(decoded.text) && decoded.text.find('\0') == std::string::npos;
}

TEST(Encoding, EveryPairOfBytesComesBackFromEveryEncoding) {
    for (const std::string_view name : kPages) {
        const auto encoding = OpenEncoding(name);
        for (unsigned pair = 0; pair < 0x10000U; ++pair) {
            const std::string bytes{static_cast<char>(pair >> 8U), static_cast<char>(pair & 0xFFU)};
            ASSERT_TRUE(ComesBack(bytes, *encoding)) << name << " " << pair;
        }
    }
}

struct Meaning {
    std::string_view encoding;
    std::string bytes;
    std::string text;
};

TEST(Encoding, BytesMeanTheCharactersOfTheirPage) {
    // clang-format off
    const Meaning meanings[] = {
        {"windows-1252", "Gr\xF6\xDF" "e \x80", "Größe €"},
        {"windows-1252", "\x81\x8D\x8F\x90\x9D", "\u0081\u008D\u008F\u0090\u009D"},
        {"windows-1251", "\xCF\xF0\xE8\xE2\xE5\xF2", "Привет"},
        {"Shift_JIS", "\x83\x5C\x82\xCD \\n \xB1\x8F", "ソは \\n ｱ" + StandIns("\x8F")},
        {"Shift_JIS", "\x81\nx", StandIns("\x81") + "\nx"},
        {"GBK", "\xC4\xE3\x80", "你€"},
        {"Big5", "\xA4\xA4\xA4\xE5", "中文"},
        {"EUC-JP", "\xA5\xBD\x8F\xB0\xA1", "ソ丂"},
        {"gb18030", "\x81\x30\x81\x30\x94\x39\xDA\x33", "\u0080\U0001F4A9"},
        {"US-ASCII", "a\xE9", "a" + StandIns("\xE9")},
        {"UTF-8", "a\xC3\xA9\xC3(\xED\xA0\x80", "aé" + StandIns("\xC3") + "(" + StandIns("\xED\xA0\x80")},
        {"UTF-8", "a\0b"s, "a" + StandIns("\0"s) + "b"},
        {"UTF-8", "\xF4\x8F\xB9\x81", StandIns("\xF4\x8F\xB9\x81")},
        {"UTF-8", "\xF4\x8F\xBF\xBD", "\U0010FFFD"},
        {"UTF-16LE", "a\0\x3D\xD8\xA9\xDC"s, "a\U0001F4A9"},
        {"UTF-16LE", "\0\xD8""a\0b"s, StandIns("\0\xD8"s) + "a" + StandIns("b")},
        {"UTF-16BE", "\0a\xDC\x00\0\0"s, "a" + StandIns("\xDC\x00\0\0"s)},
        {"UTF-32BE", "\0\x01\xF4\xA9\0\0\xD8\0\0\x11\0\0\0\0"s, "\U0001F4A9" + StandIns("\0\0\xD8\0\0\x11\0\0\0\0"s)},
        {"UTF-32LE", "a\0\0\0\xFF\xFE\x10\0"s, "a" + StandIns("\xFF\xFE\x10\0"s)},
    };
    // clang-format on
    for (const Meaning& row : meanings) {
        const auto encoding = OpenEncoding(row.encoding);
        EXPECT_EQ(Decode(row.bytes, *encoding).text, row.text) << row.encoding;
        EXPECT_TRUE(ComesBack(row.bytes, *encoding)) << row.encoding << " " << row.text;
    }
}

TEST(Encoding, LinesWithOddBytesAreNamed) {
    const auto encoding = OpenEncoding("Shift_JIS");
    const DecodedText decoded = Decode("a\n\0\n\x81\n\xFD\r\n\0\x81"s, *encoding);
    EXPECT_EQ(decoded.nulLines.ToText(), "2,5");
    EXPECT_EQ(decoded.undecodableLines.ToText(), "3-5");
}

TEST(Encoding, CharactersThatAnEncodingLacksAreNamedAndLeftOut) {
    const auto encoding = OpenEncoding("windows-1252");
    const EncodedText encoded = Encode("a\r\n中é\r\nb\r\nжж", *encoding);
    EXPECT_EQ(encoded.bytes, "a\r\n\xE9\r\nb\r\n");
    EXPECT_EQ(encoded.unencodableLines.ToText(), "2,4");
}

TEST(Encoding, NamesAreTakenInTheirUsualWritings) {
    for (const std::string_view name : {"Windows-1252", "cp1252", "utf8", "utf-16le", "sjis",
                                        "shift-jis", "windows-932", "gbk", "latin1"}) {
        EXPECT_TRUE(IsKnownEncoding(name)) << name;
        EXPECT_NE(OpenEncoding(name), nullptr) << name;
    }
    // Unknown ones, and those in which the meaning of a byte depends on escape sequences before it.
    for (const std::string_view name :
         {"", "nonsense", "UTF-16", "UTF-7", "ISO-2022-JP", "HZ", "windows;1252", "UTF=8"}) {
        EXPECT_FALSE(IsKnownEncoding(name)) << name;
        EXPECT_THROW(OpenEncoding(name), Error) << name;
    }
}

}  // namespace
}  // namespace snippetarium
