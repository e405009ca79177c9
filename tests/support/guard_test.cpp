#include "support/guard.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

using snippetarium::test::FakeHost;

class GuardTest : public ::testing::Test {
  protected:
    /// The messages shown so far are those of these failures, in this order.
    struct Failure {
        Procedure procedure;
        ErrorDetails error;
    };
    void ExpectReported(const std::vector<Failure>& failures) {
        const auto& shown = host_.messages.shown;
        ASSERT_EQ(shown.size(), failures.size());
        for (std::size_t i = 0; i < failures.size(); ++i) {
            EXPECT_EQ(shown[i].text, ErrorMessageText(failures[i].procedure, failures[i].error));
        }
    }

    /// A guarded operation that fails.
    int Fail(Procedure procedure, const std::string& text = "broken") {
        return Guarded(host_.reporter, procedure, [&]() -> int { throw Error(5, text); });
    }

    FakeHost host_;
    ErrorReporter& reporter_ = host_.reporter;
};

TEST_F(GuardTest, ReturnsTheDefaultOfEachResultTypeAfterAFailure) {
    const auto fail = [](auto result) {
        return [result = std::move(result)]() -> std::decay_t<decltype(result)> {
            throw Error(5, "broken");
        };
    };
    EXPECT_EQ(Guarded(reporter_, Procedure::ScalarLong, fail(1)), 0);
    EXPECT_EQ(Guarded(reporter_, Procedure::GetFromPath, fail(std::string("x"))), "");
    EXPECT_FALSE(Guarded(reporter_, Procedure::RecordExists, fail(true)));
    EXPECT_EQ(Guarded(reporter_, Procedure::OpenTextFile, fail(std::make_unique<int>(1))), nullptr);
    EXPECT_NO_THROW(
        Guarded(reporter_, Procedure::ExecuteSQL, []() -> void { throw Error(5, "broken"); }));
    const ErrorDetails broken{5, "broken"};
    ExpectReported({{Procedure::ScalarLong, broken},
                    {Procedure::GetFromPath, broken},
                    {Procedure::RecordExists, broken},
                    {Procedure::OpenTextFile, broken},
                    {Procedure::ExecuteSQL, broken}});
}

TEST_F(GuardTest, TheInnermostGuardReportsAndNoGuardGoesOn) {
    std::vector<std::string> wentOn;
    const int result = Guarded(reporter_, Procedure::RunCompaction, [&] {
        const int inner = Guarded(reporter_, Procedure::OpenCatalogue, [&] {
            Fail(Procedure::ScalarLong);
            wentOn.emplace_back("middle");
            return 1;
        });
        wentOn.emplace_back("outer");
        return inner + 1;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(wentOn, std::vector<std::string>{});
    ExpectReported({{Procedure::ScalarLong, {5, "broken"}}});
}

TEST_F(GuardTest, AStageThatFailsLetsItsJobGoOn) {
    const int result = Guarded(reporter_, Procedure::RunCompaction, [&] {
        GuardedStage(reporter_, Procedure::CloseCatalogue, [] { throw Error(70, "locked"); });
        const int staged = GuardedStage(reporter_, Procedure::CompactCatalogue,
                                        [&] { return 1 + Fail(Procedure::ScalarLong); });
        return 10 + staged;
    });
    EXPECT_EQ(result, 10);
    ExpectReported(
        {{Procedure::CloseCatalogue, {70, "locked"}}, {Procedure::ScalarLong, {5, "broken"}}});
}

TEST_F(GuardTest, AStageThatFailsInsideAnotherStageReturnsItsDefault) {
    const int result = GuardedStage(reporter_, Procedure::RunCompaction, [&] {
        return 1 + GuardedStage(reporter_, Procedure::CompactCatalogue,
                                []() -> int { throw Error(5, "broken"); });
    });
    EXPECT_EQ(result, 1);
    ExpectReported({{Procedure::CompactCatalogue, {5, "broken"}}});
}

TEST_F(GuardTest, AFailureAfterOneThatTheBodyCaughtIsReportedAnew) {
    Guarded(reporter_, Procedure::RunCompaction, [&] {
        try {
            Fail(Procedure::ScalarLong, "first");
        } catch (const ReportedError&) {
            throw Error(6, "second");
        }
    });
    Guarded(reporter_, Procedure::RunCompaction, [&] {
        try {
            Fail(Procedure::MaxIDValue, "third");
        } catch (const Error& error) {
            EXPECT_EQ(error.Description(), "third");
        }
        throw Error(6, "fourth");
    });
    ExpectReported({{Procedure::ScalarLong, {5, "first"}},
                    {Procedure::RunCompaction, {6, "second"}},
                    {Procedure::MaxIDValue, {5, "third"}},
                    {Procedure::RunCompaction, {6, "fourth"}}});
}

TEST_F(GuardTest, AnOperationThatStartsWhileTheMessageIsUpReportsAndReturnsItsDefault) {
    int eventResult = -1;
    host_.messages.whileShown = [&](const auto&) {
        host_.messages.whileShown = nullptr;
        eventResult = Fail(Procedure::RecordExists, "from the event");
    };
    bool wentOn = false;
    const int result = Guarded(reporter_, Procedure::RunCompaction, [&] {
        Fail(Procedure::ScalarLong, "from the job");
        wentOn = true;
        return 1;
    });
    EXPECT_EQ(eventResult, 0);
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(wentOn) << "the message must not make the waiting guard the outermost one";
    ExpectReported({{Procedure::ScalarLong, {5, "from the job"}},
                    {Procedure::RecordExists, {5, "from the event"}}});
}

TEST_F(GuardTest, AnOperationThatStartsWhileEventsRunReportsAndReturnsItsDefault) {
    int eventResult = -1;
    host_.events.At(1, [&] { eventResult = Fail(Procedure::RecordExists, "from the event"); });
    const int result = Guarded(reporter_, Procedure::RunCompaction, [&] {
        host_.events.Yield();
        Fail(Procedure::ScalarLong, "from the job");
        return 1;
    });
    EXPECT_EQ(eventResult, 0);
    EXPECT_EQ(result, 0);
    ExpectReported({{Procedure::RecordExists, {5, "from the event"}},
                    {Procedure::ScalarLong, {5, "from the job"}}});
}

TEST_F(GuardTest, AMessageThatCannotBeShownStillEndsTheOperationWithItsDefault) {
    host_.messages.whileShown = [](const auto&) { throw Error(7, "no window"); };
    ::testing::internal::CaptureStderr();
    const int result = Guarded(reporter_, Procedure::RunCompaction,
                               [&] { return 1 + Fail(Procedure::ScalarLong); });
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "QRT Error Code 10787: the message could not be shown.\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(host_.messages.shown.size(), 1U);
}

}  // namespace
}  // namespace snippetarium
