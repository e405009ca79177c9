#include "support/line_ends.h"

#include <gtest/gtest.h>

#include "support/error.h"
#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

/// Character by character, without a thought for speed.
std::string SlowlyNormalised(const std::string& text) {
    std::string normal;
    for (const char character : text) {
        if (character == '\n' && !normal.ends_with('\r')) normal += '\r';
        normal += character;
    }
    return normal;
}

TEST(LineEnds, EveryMixtureComesBackAndIsNormalBetween) {
    ForEveryText("a\r\n", 8, [](const std::string& file) {
        std::string text = file;
        const LineEnds ends = NormaliseLineEnds(text);
        EXPECT_EQ(text, SlowlyNormalised(file));
        EXPECT_EQ(WithLineEnds(text, ends), file);
    });
}

struct Case {
    std::string text;
    LineEnd most;
    std::string others;
    bool lastLineEnds;
};

TEST(LineEnds, MostLinesDecideAndTheOthersAreNumbered) {
    // clang-format off
    const Case cases[] = {
        {"", LineEnd::CrLf, "", true},
        {"a", LineEnd::CrLf, "", false},
        {"a\n", LineEnd::Lf, "", true},
        {"a\r", LineEnd::CrLf, "", false},
        {"a\r\nb", LineEnd::CrLf, "", false},
        {"a\nb\r\n", LineEnd::CrLf, "1", true},
        {"a\nb\nc\r\nd\r\ne\nf", LineEnd::Lf, "3-4", false},
        {"\r\n\r\n\r\n\n\r\n\n\n", LineEnd::CrLf, "4,6-7", true},
    };
    // clang-format on
    for (const Case& row : cases) {
        std::string text = row.text;
        const LineEnds ends = NormaliseLineEnds(text);
        EXPECT_EQ(ends.most, row.most) << row.text;
        EXPECT_EQ(ends.others.ToText(), row.others) << row.text;
        EXPECT_EQ(ends.lastLineEnds, row.lastLineEnds) << row.text;
    }
}

TEST(LineEnds, AnEditedTextEndsAsTheFileDid) {
    const LineEnds ended{LineEnd::Lf, LineSet::Parse("2"), true};
    EXPECT_EQ(WithLineEnds("a\r\nb", ended), "a\nb\r\n");
    EXPECT_EQ(WithLineEnds("a\r\nb\r\nc\r\n", ended), "a\nb\r\nc\n");
    EXPECT_EQ(WithLineEnds("", ended), "");
    // The return is a character of its line, wherever the line has come to stand.
    EXPECT_EQ(WithLineEnds("a\r\r\nb\r\nc\r\n", ended), "a\r\r\nb\r\nc\n");
    const LineEnds open{LineEnd::CrLf, {}, false};
    EXPECT_EQ(WithLineEnds("a\r\nb\r\n", open), "a\r\nb");
    EXPECT_EQ(WithLineEnds("a\r\n\r\n", open), "a");
    EXPECT_EQ(WithLineEnds("a\r\nb", open), "a\r\nb");
}

TEST(LineSet, HoldsTheLinesAddedAndTheTextSaysSo) {
    // Every set of lines from 1 to 10.
    for (unsigned bits = 0; bits < 1U << 10U; ++bits) {
        LineSet lines;
        std::size_t count = 0;
        for (unsigned line = 1; line <= 10; ++line) {
            if ((bits >> (line - 1) & 1U) == 0) continue;
            lines.Add(line);
            lines.Add(line);
            ++count;
        }
        for (unsigned line = 1; line <= 10; ++line) {
            ASSERT_EQ(lines.Contains(line), (bits >> (line - 1) & 1U) == 1) << lines.ToText();
        }
        ASSERT_EQ(lines.Count(), count);
        ASSERT_EQ(lines.Empty(), bits == 0);
        ASSERT_EQ(LineSet::Parse(lines.ToText()), lines) << lines.ToText();
    }
}

TEST(LineSet, DamagedTextsAreRefused) {
    for (const char* text : {"0", "a", "1,", ",1", "1,,2", "1-", "-1", "3-2", "3,2", "1-3,3", "1 2",
                             "1-2-3", " 1", "+1", "99999999999999999999999"}) {
        EXPECT_THROW(LineSet::Parse(text), Error) << text;
    }
}

}  // namespace
}  // namespace snippetarium
