#include "support/quoted_literals.h"

#include <gtest/gtest.h>

#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

/// The rule as a machine that reads one byte at a time and remembers whether the next is escaped.
std::string RemovedByteByByte(std::string_view text) {
    std::string outside;
    std::string literal;
    bool escaped = false;
    for (const char c : text) {
        const bool isQuote = c == '"' || c == '\'';
        if (literal.empty() && !isQuote) {
            outside += c;
            continue;
        }
        const bool closes = !literal.empty() && !escaped && c == literal.front();
        escaped = !literal.empty() && !escaped && c == '\\';
        literal += c;
        if (closes) literal.clear();
    }
    return outside + literal;
}

TEST(RemoveQuotedLiterals, KeepsTheRestAndWhatAnUnclosedQuoteStarts) {
    const struct {
        std::string_view input, expected;
    } cases[] = {
        {R"(a = "x'y" ' note)", "a =  ' note"},
        {R"(s = "a\"b")", "s = "},
        {R"(s = "a\\" + t)", "s =  + t"},
        {R"(s = "a\\\" + t)", R"(s = "a\\\" + t)"},
        {R"(\"a"b)", R"(\b)"},
        {R"(' say "no" here)", R"(' say "no" here)"},
        {R"(Print "He said ""no"".")", "Print "},
        {"", ""},
    };
    for (const auto& [input, expected] : cases)
        EXPECT_EQ(RemoveQuotedLiterals(input), expected);
}

TEST(RemoveQuotedLiterals, AgreesWithTheByteMachineOnEveryShortText) {
    ForEveryText("a'\"\\", 8, [](const std::string& text) {
        const std::string expected = RemovedByteByByte(text);
        ASSERT_EQ(RemoveQuotedLiterals(text), expected) << text;
        ASSERT_EQ(HasQuoteOutsideLiterals(text), expected.find_first_of("'\"") != std::string::npos)
            << text;
    });
}

}  // namespace
}  // namespace snippetarium
