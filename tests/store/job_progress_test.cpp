#include "store/job_progress.h"

#include <gtest/gtest.h>

#include "tests/fakes.h"

namespace snippetarium::test {
namespace {

using namespace std::chrono_literals;

TEST(JobProgress, OpensNoWindowForWorkThatIsDoneInAMoment) {
    FakeHost host;
    JobProgress progress(host.host, "Working", JobProgress::Cancelling::Possible);
    progress.Show(0.5);
    host.clock.Advance(499ms);
    progress.Show(1.0);
    EXPECT_FALSE(progress.IsCancelled());
    EXPECT_TRUE(host.progress.opened.empty());
    EXPECT_EQ(host.events.yields, 2);
}

TEST(JobProgress, ShowsStageAndShareOfLongerWorkAndClosesItsWindow) {
    FakeHost host;
    {
        JobProgress progress(host.host, "Working", JobProgress::Cancelling::Impossible);
        progress.SetStage("first");
        host.clock.Advance(500ms);
        progress.Show(0.25);
        EXPECT_TRUE(host.progress.IsOpen());
        EXPECT_FALSE(host.progress.CanCancel());
        progress.SetStage("second");
        EXPECT_EQ(host.progress.Total(), 25.0);
    }
    EXPECT_FALSE(host.progress.IsOpen());
    EXPECT_EQ(host.progress.opened, std::vector<std::string>{"Working"});
    EXPECT_EQ(host.progress.TextsOf(ProgressText::ContentLine),
              (std::vector<std::string>{"first", "second"}));
}

TEST(JobProgress, HearsCancelWhileItIsAsked) {
    FakeHost host;
    const JobProgress progress(host.host, "Working", JobProgress::Cancelling::Possible);
    host.clock.Advance(1s);
    EXPECT_FALSE(progress.IsCancelled());
    host.PressCancelAt(2);
    EXPECT_TRUE(progress.IsCancelled());
}

TEST(JobProgress, LeavesTheWindowOfOtherWorkAlone) {
    FakeHost host;
    host.progress.Open("Other work");
    host.progress.SetTotal(70.0);
    {
        JobProgress progress(host.host, "Working", JobProgress::Cancelling::Possible);
        host.clock.Advance(1s);
        progress.Show(0.1);
    }
    EXPECT_TRUE(host.progress.IsOpen());
    EXPECT_EQ(host.progress.Total(), 70.0);
    EXPECT_FALSE(host.progress.CanCancel());
}

}  // namespace
}  // namespace snippetarium::test
