#include "cli/console.h"

#include <gtest/gtest.h>

#include <sstream>

namespace snippetarium {
namespace {

TEST(TerminalText, HasTheTerminalsLineEndsAndCannotSteerIt) {
    const struct {
        std::string_view input;
        std::string_view expected;
    } cases[] = {
        {"", ""},
        {"one\r\n\r\ntwo\n", "one\n\ntwo\n"},
        {"tab\tkept", "tab\tkept"},
        {"bare\rreturn\r", "bare?return?"},
        {"\x1b[2Jcleared\a\x7f", "?[2Jcleared??"},
        {"csi \xc2\x9b"
         "2J",
         "csi ?2J"},
        {"Grüße \xe2\x82\xac", "Grüße \xe2\x82\xac"},
        {"raw \x9b"
         "2J \xe2\x82",
         "raw ?2J ??"},
    };
    for (const auto& [input, expected] : cases)
        EXPECT_EQ(TerminalText(input), expected);
}

TEST(Console, WhatIsPrintedTakesTheStatusLineAway) {
    std::istringstream input;
    std::ostringstream error;
    Console console(input, error, {.input = false, .error = true});
    console.ShowStatus("busy\r\nwith a.bas");
    console.PrintLine("a notice");
    console.PrintLine("another");
    EXPECT_EQ(error.str(),
              "\r\x1b[2K\x1b[?7lbusy?with a.bas\x1b[?7h"
              "\r\x1b[2Ka notice\nanother\n");
}

TEST(Console, AFileGetsNoStatusLines) {
    std::istringstream input;
    std::ostringstream error;
    Console console(input, error, {.input = true, .error = false});
    console.ShowStatus("busy");
    console.ClearStatus();
    EXPECT_EQ(error.str(), "");
}

}  // namespace
}  // namespace snippetarium
