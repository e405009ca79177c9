#include "cli/terminal_progress.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

using snippetarium::test::FakeClock;
using namespace std::chrono_literals;

class TerminalProgressTest : public ::testing::Test {
  protected:
    /// What was written since the last call.
    std::string Written() {
        std::string written = error_.str();
        error_.str("");
        return written;
    }
    static std::string Status(const std::string& line) {
        return "\r\x1b[2K\x1b[?7l" + line + "\x1b[?7h";
    }

    std::istringstream input_;
    std::ostringstream error_;
    Console console_{input_, error_, {.input = false, .error = true}};
    FakeClock clock_;
    TerminalProgress progress_{console_, clock_};
};

TEST_F(TerminalProgressTest, ShowsBothBarsAndTheFileAndClearsTheLineAtTheEnd) {
    progress_.Open("Starting");
    EXPECT_EQ(Written(),
              Status("Unit Progress: [----------] Total Progress: [----------] Starting"));
    progress_.SetUnitLabel("File Progress:");
    progress_.SetUnit(49.9);
    progress_.SetTotal(100);
    progress_.SetFolderLine("Current folder: forms");
    clock_.Advance(100ms);
    progress_.Refresh();
    EXPECT_EQ(Written(), Status("File Progress: [####------] Total Progress: [##########] "
                                "Current folder: forms"));
    clock_.Advance(100ms);
    progress_.SetContentLine("Importing forms\\a.frm");
    EXPECT_EQ(Written(), Status("File Progress: [####------] Total Progress: [##########] "
                                "Importing forms\\a.frm"));
    progress_.Close();
    EXPECT_EQ(Written(), "\r\x1b[2K");
    EXPECT_FALSE(progress_.IsOpen());
}

TEST_F(TerminalProgressTest, RewritesTheLineAtMostTenTimesASecond) {
    progress_.Open("Counting");
    int lines = Written().empty() ? 0 : 1;
    for (int step = 0; step < 1000; ++step) {
        clock_.Advance(1ms);
        progress_.SetUnit(step / 10.0);
        if (!Written().empty()) ++lines;
    }
    EXPECT_EQ(lines, 11);
    clock_.Advance(1s);
    progress_.Refresh();
    Written();
    clock_.Advance(1s);
    progress_.Refresh();
    EXPECT_EQ(Written(), "") << "nothing changed";
}

TEST_F(TerminalProgressTest, BarsStayInsideTheirFrames) {
    progress_.Open("");
    const struct {
        double percent;
        std::string_view bar;
    } cases[] = {{-5, "[----------]"},  {0, "[----------]"},           {9.99, "[----------]"},
                 {10, "[#---------]"},  {99.9, "[#########-]"},        {100, "[##########]"},
                 {1e9, "[##########]"}, {std::nan(""), "[----------]"}};
    for (const auto& [percent, bar] : cases) {
        clock_.Advance(1s);
        progress_.SetUnit(percent);
        EXPECT_NE(Written().find("Unit Progress: " + std::string(bar)), std::string::npos)
            << percent;
    }
}

TEST_F(TerminalProgressTest, AWindowOpenedAgainStartsAnew) {
    progress_.Open("First");
    progress_.SetUnit(50);
    progress_.SetContentLine("a.bas");
    EXPECT_EQ(progress_.Unit(), 50);
    progress_.Close();
    progress_.Open("Second");
    EXPECT_EQ(progress_.Unit(), 0);
    EXPECT_NE(Written().find("[----------] Second"), std::string::npos);
}

TEST_F(TerminalProgressTest, WritesNothingWhereTheOutputIsNoTerminal) {
    Console file(input_, error_, {.input = true, .error = false});
    TerminalProgress progress(file, clock_);
    progress.Open("Importing");
    progress.SetUnit(30);
    clock_.Advance(1s);
    progress.SetUnit(40);
    EXPECT_EQ(progress.Unit(), 40);
    progress.Close();
    EXPECT_EQ(Written(), "");
}

}  // namespace
}  // namespace snippetarium
