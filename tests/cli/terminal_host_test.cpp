#include "cli/terminal_host.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sstream>
#include <string>
#include <utility>

#include "support/guard.h"

namespace snippetarium {
namespace {

/// A host whose terminal types the given lines; without lines, one that has no terminal.
struct Terminal {
    explicit Terminal(const std::string& typed = "", QuestionPolicy policy = QuestionPolicy::Ask)
        : input(typed),
          console(input, error, {.input = !typed.empty(), .error = false}),
          terminal(console, policy) {}

    std::istringstream input;
    std::ostringstream error;
    Console console;
    TerminalHost terminal;
    Host host = terminal.Interfaces();

    /// Starts a job that can be cancelled.
    void StartJob(std::function<void()> cancelHandler) {
        host.progress.Open("Importing");
        host.progress.SetCancelHandler(std::move(cancelHandler));
    }
};

class TerminalHostTest : public ::testing::Test {
  protected:
    // A test run started in the background by a shell would be deaf to Ctrl+C.
    TerminalHostTest() : before_(std::signal(SIGINT, SIG_DFL)) {}
    ~TerminalHostTest() override { std::signal(SIGINT, before_); }

  private:
    void (*before_)(int);
};

TEST_F(TerminalHostTest, CtrlCCallsTheCancelHandlerOnceAtTheNextYield) {
    Terminal t;
    int presses = 0;
    t.StartJob([&] { ++presses; });
    t.host.events.Yield();
    EXPECT_EQ(presses, 0);
    std::raise(SIGINT);
    EXPECT_EQ(presses, 0);
    t.host.events.Yield();
    t.host.events.Yield();
    EXPECT_EQ(presses, 1);
}

TEST_F(TerminalHostTest, EachJobHasItsOwnFirstCtrlC) {
    Terminal t;
    int presses = 0;
    for (int job = 0; job < 2; ++job) {
        t.StartJob([&] { ++presses; });
        std::raise(SIGINT);
        t.host.events.Yield();
        t.host.progress.Close();
    }
    EXPECT_EQ(presses, 2);
}

TEST_F(TerminalHostTest, APressThatCameTooLateForOneJobDoesNotCancelTheNext) {
    Terminal t;
    int presses = 0;
    t.StartJob([&] { ++presses; });
    std::raise(SIGINT);
    t.host.progress.Close();
    t.StartJob([&] { ++presses; });
    t.host.events.Yield();
    EXPECT_EQ(presses, 0);
}

TEST_F(TerminalHostTest, TheHandlerMayCloseTheWindow) {
    Terminal t;
    t.StartJob([&] { t.host.progress.Close(); });
    std::raise(SIGINT);
    t.host.events.Yield();
    EXPECT_FALSE(t.host.progress.IsOpen());
}

TEST_F(TerminalHostTest, ASecondCtrlCEndsTheProgram) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto press = [](bool isTakenInBetween) {
        Terminal t;
        t.StartJob([] {});
        std::raise(SIGINT);
        if (isTakenInBetween) t.host.events.Yield();
        std::raise(SIGINT);
    };
    EXPECT_EXIT(press(true), ::testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(press(false), ::testing::KilledBySignal(SIGINT), "");
}

TEST_F(TerminalHostTest, CtrlCEndsTheProgramWhereNothingCanBeCancelled) {
    ::testing::FLAGS_gtest_death_test_style = "threadsafe";
    enum class When { BeforeAJob, WithoutAHandler, AfterTheHandler, AfterAJob };
    const auto press = [](When when) {
        Terminal t;
        if (when != When::BeforeAJob) t.host.progress.Open("Importing");
        if (when >= When::AfterTheHandler) t.host.progress.SetCancelHandler([] {});
        if (when == When::AfterTheHandler) t.host.progress.SetCancelHandler(nullptr);
        if (when == When::AfterAJob) t.host.progress.Close();
        std::raise(SIGINT);
    };
    EXPECT_EXIT(press(When::BeforeAJob), ::testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(press(When::WithoutAHandler), ::testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(press(When::AfterTheHandler), ::testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(press(When::AfterAJob), ::testing::KilledBySignal(SIGINT), "");
}

TEST_F(TerminalHostTest, AProgramStartedDeafToCtrlCStaysSo) {
    std::signal(SIGINT, SIG_IGN);
    {
        Terminal t;
        int presses = 0;
        t.StartJob([&] { ++presses; });
        std::raise(SIGINT);
        t.host.events.Yield();
        EXPECT_EQ(presses, 0);
    }
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN);
}

TEST_F(TerminalHostTest, CtrlCAnswersItsOwnQuestionWhereNobodyIsAsked) {
    const struct {
        std::string typed;
        QuestionPolicy policy;
        StandardAnswer expected;
    } cases[] = {
        {"n\n", QuestionPolicy::Ask, StandardAnswer::No},
        {"y\n", QuestionPolicy::Ask, StandardAnswer::Yes},
        {"", QuestionPolicy::Ask, StandardAnswer::Yes},
        {"", QuestionPolicy::No, StandardAnswer::Yes},
    };
    for (const auto& [typed, policy, expected] : cases) {
        Terminal t(typed, policy);
        StandardAnswer answer = StandardAnswer::Cancel;
        t.StartJob([&] { answer = t.host.messages.YesNo("Are you sure you want to stop?", "Q"); });
        std::raise(SIGINT);
        t.host.events.Yield();
        EXPECT_EQ(answer, expected) << "typed: " << typed;
        EXPECT_FALSE(t.terminal.FirstFailure());
    }
}

TEST_F(TerminalHostTest, AfterCtrlCTheOptionAnswersAgain) {
    Terminal t("", QuestionPolicy::No);
    t.StartJob([] { throw Error(5, "broken"); });
    std::raise(SIGINT);
    EXPECT_THROW(t.host.events.Yield(), Error);
    EXPECT_EQ(t.host.messages.YesNo("Overwrite?", "Q"), StandardAnswer::No);
}

TEST_F(TerminalHostTest, AFailureInTheCancelHandlerDoesNotThrowIntoTheJob) {
    Terminal t;
    ErrorReporter& reporter = t.host.reporter;
    t.StartJob([&] {
        Guarded(reporter, Procedure::ListAllSubfolderFiles, [] { throw Error(5, "broken"); });
    });
    std::raise(SIGINT);
    const int result = Guarded(reporter, Procedure::RunCompaction, [&] {
        t.host.events.Yield();
        return 1;
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(t.error.str().find("Snippetarium Error Message: An error has occurred.\n\nQRT Error"),
              0U);
}

TEST_F(TerminalHostTest, TheFirstFailureIsRememberedHoweverItWasTold) {
    const auto report = [](const Host& host, int number, const std::string& text) {
        Guarded(host.reporter, Procedure::RunCompaction, [&] { throw Error(number, text); });
    };
    Terminal reported;
    EXPECT_FALSE(reported.terminal.FirstFailure());
    reported.host.messages.Information("Done.", "Title");
    EXPECT_FALSE(reported.terminal.FirstFailure());
    report(reported.host, 61, "Disk full");
    report(reported.host, 70, "Permission denied");
    ASSERT_TRUE(reported.terminal.FirstFailure());
    EXPECT_EQ(reported.terminal.FirstFailure()->number, 61);
    EXPECT_EQ(reported.terminal.FirstFailure()->description, "Disk full");

    Terminal boxed;
    boxed.host.messages.Error("The name is too long.", "Title");
    boxed.host.messages.Error("And empty.", "Title");
    ASSERT_TRUE(boxed.terminal.FirstFailure());
    EXPECT_EQ(boxed.terminal.FirstFailure()->number, 0);
    EXPECT_EQ(boxed.terminal.FirstFailure()->description, "The name is too long.");

    Terminal refused;
    refused.host.messages.Series("Overwrite?");
    ASSERT_TRUE(refused.terminal.FirstFailure());
    EXPECT_EQ(refused.terminal.FirstFailure()->number, 0);
}

TEST_F(TerminalHostTest, HelpIsAnAddress) {
    Terminal t;
    t.host.help.Create();
    ASSERT_TRUE(t.host.help.IsVisible());
    t.host.help.Navigate("/usr/share/help/default.htm#Search");
    EXPECT_EQ(t.error.str(), "/usr/share/help/default.htm#Search\n");
}

}  // namespace
}  // namespace snippetarium
