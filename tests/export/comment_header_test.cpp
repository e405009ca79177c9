#include "export/comment_header.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/utf8.h"
#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

const std::string kStars(70, '*');

std::string InVbFrame(const std::string& lines) {
    return "'" + kStars + "\r\n" + lines + "'" + kStars;
}

std::string InCFrame(const std::string& lines) {
    return "/" + kStars + "\r\n" + lines + kStars + "/\r\n";
}

/// The lines of a text in which each line break is CR LF.
std::vector<std::string> LinesOf(std::string text) {
    if (!text.ends_with("\r\n")) text += "\r\n";
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = text.find("\r\n", begin);
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 2;
    }
    return lines;
}

TEST(CommentHeader, IsFramedForVisualBasic) {
    const struct {
        std::string_view comment;
        std::string lines;
    } cases[] = {
        {"Draws the grid.", "'Draws the grid.\r\n"},
        {"'Draws\r\nthe grid.", "'Draws\r\n'the grid.\r\n"},
        {"a\r\n\r\nb\r\n", "'a\r\n'\r\n'b\r\n"},
        {"a\nb\rc", "'a\r\n'b\r\n'c\r\n"},
        {"// a //", "' a \r\n"},
        {"a///b", "'a/b\r\n"},
        {"see http://x", "'see http:x\r\n"},
        {"*/ stays", "'*/ stays\r\n"},
        {"* no frame", "'* no frame\r\n"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatVbCommentHeader(test.comment), InVbFrame(test.lines)) << test.comment;
}

TEST(CommentHeader, IsFramedForC) {
    const struct {
        std::string_view comment;
        std::string lines;
    } cases[] = {
        {"Draws the grid.", "*Draws the grid.\r\n"},
        {"* Draws\r\n  the grid.", "* Draws\r\n*  the grid.\r\n"},
        {"// Draws\r\n// the grid.", "* Draws\r\n* the grid.\r\n"},
        {"a */ int x; /* b", "*a * / int x; /* b\r\n"},
        {"*/", "* /\r\n"},
        {"**/*/", "** /* /\r\n"},
        {"a\r\n/b", "*a\r\n* /b\r\n"},
        {"*///", "* /\r\n"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatCCommentHeader(test.comment), InCFrame(test.lines)) << test.comment;
}

TEST(CommentHeader, LeavesAloneWhatIsFramedOrEmpty) {
    for (const std::string_view comment : {"", "'*", "'* see http://x", "'*\r\nlong"})
        EXPECT_EQ(FormatVbCommentHeader(comment), comment);
    for (const std::string_view comment : {"", "/*", "/* see http://x */", "/**\r\n */"})
        EXPECT_EQ(FormatCCommentHeader(comment), comment);
    EXPECT_EQ(FormatVbCommentHeader("//"), "") << "nothing is left to frame";
}

TEST(CommentHeader, OfAnyTextIsOneCommentAndFramingItAgainChangesNothing) {
    ForEveryText("a/*' \n", 5, [](const std::string& comment) {
        const std::string basic = FormatVbCommentHeader(comment);
        ASSERT_EQ(FormatVbCommentHeader(basic), basic);
        if (!basic.empty() && basic != comment) {
            for (const std::string& line : LinesOf(basic))
                ASSERT_TRUE(line.starts_with('\'')) << comment;
        }
        const std::string c = FormatCCommentHeader(comment);
        ASSERT_EQ(FormatCCommentHeader(c), c);
        if (!c.empty() && c != comment) {
            ASSERT_TRUE(c.starts_with("/*"));
            ASSERT_EQ(c.find("*/"), c.size() - 4) << comment;
        }
    });
}

TEST(CommentHeader, BreaksLongLinesAtBlanks) {
    const std::string ninetyNine(99, 'x');
    const std::string ninetyEight(98, 'x');
    const std::string twoBytes = "\xC3\xA4";
    std::string umlauts;
    for (int i = 0; i < 99; ++i)
        umlauts += twoBytes;
    const struct {
        std::string comment;
        std::string lines;
    } cases[] = {
        {ninetyNine, "'" + ninetyNine + "\r\n"},
        {ninetyNine + " y", "'" + ninetyNine + "\r\n'y\r\n"},
        {ninetyEight + "  y", "'" + ninetyEight + "\r\n'y\r\n"},
        {"a " + ninetyEight, "'a\r\n'" + ninetyEight + "\r\n"},
        {"a " + ninetyNine + "z", "'a\r\n'" + ninetyNine + "z\r\n"},
        {ninetyNine + "zz and", "'" + ninetyNine + "zz\r\n'and\r\n"},
        {"  " + ninetyNine, "'  " + ninetyNine + "\r\n"},
        {umlauts + " y", "'" + umlauts + "\r\n'y\r\n"},
        {"'" + ninetyNine + " 'y'", "'" + ninetyNine + "\r\n''y'\r\n"},
        {ninetyNine + " ", "'" + ninetyNine + "\r\n"},
        {std::string(101, ' '), "'" + std::string(101, ' ') + "\r\n"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatVbCommentHeader(test.comment), InVbFrame(test.lines)) << test.comment;
    EXPECT_EQ(FormatCCommentHeader(ninetyEight + "* /y"),
              InCFrame("*" + ninetyEight + "*\r\n* /y\r\n"))
        << "a slash must not come right behind the star of its line";
}

TEST(CommentHeader, KeepsTheWordsOfALongComment) {
    std::string comment;
    for (int i = 0; i < 400; ++i)
        comment += "word" + std::to_string(i * i) + (i % 7 == 0 ? "  " : " ");
    std::string unframed;
    for (const std::string& line : LinesOf(FormatCCommentHeader(comment))) {
        ASSERT_LE(CharacterCount(line), 100U);
        unframed += line.substr(1) + " ";
    }
    std::istringstream expected(comment);
    std::istringstream found(unframed.substr(kStars.size() + 1));
    for (std::string word; expected >> word;) {
        std::string other;
        found >> other;
        ASSERT_EQ(other, word);
    }
}

TEST(CommentHeader, FitsTheLanguage) {
    const struct {
        std::int32_t languageID;
        std::string framed;
    } cases[] = {
        {1, InVbFrame("'a\r\n")}, {8, InVbFrame("'a\r\n")},  {6, InVbFrame("'a\r\n")},
        {2, InCFrame("*a\r\n")},  {4, InCFrame("*a\r\n")},   {5, InCFrame("*a\r\n")},
        {7, InCFrame("*a\r\n")},  {12, InVbFrame("'a\r\n")},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FormatCommentHeader("a", test.languageID), test.framed) << test.languageID;
    for (const std::int32_t languageID : {3, 10, 11}) {
        const std::string framed = FormatCommentHeader("a", languageID);
        EXPECT_EQ(framed + "\r\n", InCFrame("*a\r\n")) << languageID;
        EXPECT_EQ(FormatCommentHeader(framed, languageID), framed);
    }
}

}  // namespace
}  // namespace snippetarium
