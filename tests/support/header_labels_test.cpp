#include "support/header_labels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace snippetarium {
namespace {

TEST(RemoveTaggedCommentLines, RemovesTheLinesOfTheFirstLabelInTheTable) {
    const struct {
        std::string_view name, input, expected;
    } cases[] = {
        {"no label", "'Note: x\r\nSub A()\r\n", "'Note: x\r\nSub A()\r\n"},
        {"no label in its own case", "'author: x\r\nSub A()\r\n", "'author: x\r\nSub A()\r\n"},
        {"first line", "'Author: x\r\nSub A()\r\n", "Sub A()\r\n"},
        {"line inside", "a\r\n'  Date: x\r\nSub A()\r\n", "a\r\nSub A()\r\n"},
        {"behind code", "a = 1 'Date: x\r\nSub A()\r\n", "a = 1 Sub A()\r\n"},
        {"last of two quotes", "b = 'it' Date: x\r\nrest", "b = 'itrest"},
        {"table order, not text order", "'Date: 1\r\n'Author: x\r\nrest", "'Date: 1\r\nrest"},
        {"later ones in any case", "'Date: 1\r\nabcdef\r\n'DATE: 2\r\nrest", "abcdef\r\nrest"},
        {"a label one byte nearer is passed over", "'Date: 1\r\nabcde\r\n'Date: 2\r\nrest",
         "abcde\r\n'Date: 2\r\nrest"},
        {"a label right below is passed over", "'Date: 1\r\n'Date: 2\r\nrest", "'Date: 2\r\nrest"},
        {"next start lies behind the text's end", "'Keywords: a, b, c\r\nx", "x"},
        {"no quote before the label", "Date: 1\r\n'Date: 2\r\nrest", "Date: 1\r\nrest"},
        {"no quote at all", "Date: Date: 1\r\nrest", "Date: Date: 1\r\nrest"},
        {"quote of an earlier line", "'note\r\nDate: 1\r\nrest", "Date: 1\r\nrest"},
        {"no line break", "a\r\n'Date: 1", "a\r\n'Date: 1"},
        {"a lone line feed is no line break", "'Date: 1\nrest", "'Date: 1\nrest"},
        {"nothing behind the line break", "a 'Date: 1\r\n", "a "},
        {"one byte behind it is lost", "a 'Date: 1\r\nb", "a "},
        {"two bytes behind it stay", "a 'Date: 1\r\nbc", "a bc"},
        {"one byte stays when nothing is in front", "'Date: 1\r\nb", "b"},
    };
    for (const auto& [name, input, expected] : cases) {
        EXPECT_EQ(RemoveTaggedCommentLines(input), expected) << name;
    }
}

TEST(RemoveTaggedCommentLines, FindsEveryLabel) {
    for (const HeaderLabel& label : kHeaderLabels) {
        const std::string line = "'" + std::string(label.text) + " x\r\n";
        EXPECT_EQ(RemoveTaggedCommentLines("a\r\n" + line + "rest"), "a\r\nrest") << label.text;
    }
}

// Texts made of a line's pieces in any order reach the states that no table foresees. Removing only
// takes away, so what is left must stand in the input in its order.
TEST(RemoveTaggedCommentLines, EndsAndOnlyTakesAwayOnAnyText) {
    const std::string_view pieces[] = {"Date:", "date:", "Author:", "Da", "te:", "'",
                                       "\r\n",  "\r",    "\n",      "x",  "'",   "\r\n"};
    std::mt19937 random(20010314);
    int shortened = 0;
    for (int round = 0; round < 50000; ++round) {
        std::string text;
        for (auto count = random() % 16; count > 0; --count) {
            text += pieces[random() % std::size(pieces)];
        }
        const std::string left = RemoveTaggedCommentLines(text);
        auto next = text.begin();
        for (const char c : left) {
            next = std::find(next, text.end(), c);
            ASSERT_NE(next, text.end()) << testing::PrintToString(text);
            ++next;
        }
        if (left.size() < text.size()) ++shortened;
    }
    EXPECT_GT(shortened, 5000);
}

}  // namespace
}  // namespace snippetarium
