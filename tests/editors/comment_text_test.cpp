#include "editors/comment_text.h"

#include <gtest/gtest.h>

#include "editors/author_text.h"
#include "export/comment_header.h"

namespace snippetarium {
namespace {

TEST(FirstCommentLine, IsFoundInEveryStyleOfComment) {
    const struct {
        std::string_view comment;
        std::string_view line;
    } cases[] = {
        {"", ""},
        {"'", ""},
        {"'****\r\n'\r\n'****", ""},
        {"Draws the grid.", "Draws the grid."},
        {"'Draws\r\n'the grid", "Draws"},
        {"\r\n\r\n  ' Draws  \r\n", "Draws"},
        {"/* Draws */", "Draws"},
        {"/** Draws the grid. */", "Draws the grid."},
        {"/*\n * Draws\n */", "Draws"},
        {"// x = a / b", "x = a / b"},
        {"<!-- A page -->", "A page"},
        {"/// <summary>\n/// Draws <b>all</b>.\n/// </summary>", "Draws <b>all</b>."},
        {"/// <summary> Draws.</summary>", "Draws."},
        {"/** <p> Draws", "Draws"},
        {"// < 3 of them", "< 3 of them"},
        {"'the price in $ * 2*", "the price in $ * 2*"},
    };
    for (const auto& [comment, line] : cases)
        EXPECT_EQ(FirstCommentLine(comment), line) << comment;
}

TEST(FirstCommentLine, IsTheSameWithAFrameAsWithout) {
    for (const std::string_view comment : {"Draws the grid.", "One\r\nTwo", "a * b"}) {
        const std::string line = FirstCommentLine(comment);
        for (const std::int32_t language : {1, 2, 3, 9})
            EXPECT_EQ(FirstCommentLine(FormatCommentHeader(comment, language)), line) << comment;
    }
}

TEST(AuthorText, IsReadInItsPartsAndWrittenBack) {
    const struct {
        std::string_view text;
        AuthorName name;
        std::string_view written;
    } cases[] = {
        {"", {}, ""},
        {" \t ", {}, ""},
        {"Lindqvist", {"", "", "Lindqvist"}, "Lindqvist"},
        {"Tom Okafor", {"Tom", "", "Okafor"}, "Tom Okafor"},
        {"  Marta   J.  Lindqvist ", {"Marta", "J.", "Lindqvist"}, "Marta J. Lindqvist"},
        {"Anna Maria van Dyk", {"Anna", "Maria van", "Dyk"}, "Anna Maria van Dyk"},
        {"van Dyk, Anna Maria", {"Anna", "Maria", "van Dyk"}, "Anna Maria van Dyk"},
        {"Lindqvist,", {"", "", "Lindqvist"}, "Lindqvist"},
        {",", {}, ""},
        {", Tom", {"Tom", "", ""}, "Tom"},
    };
    for (const auto& [text, name, written] : cases) {
        const AuthorName parsed = ParseAuthorText(text);
        EXPECT_EQ(parsed.first, name.first) << text;
        EXPECT_EQ(parsed.middle, name.middle) << text;
        EXPECT_EQ(parsed.last, name.last) << text;
        EXPECT_EQ(AuthorText(parsed), written);
    }
}

}  // namespace
}  // namespace snippetarium
