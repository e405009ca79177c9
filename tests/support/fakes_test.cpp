#include "tests/fakes.h"

#include <gtest/gtest-spi.h>

namespace snippetarium::test {
namespace {

// The fakes are trusted by every other test, so their own alarms are tested.

TEST(FakeMessageBoxes, AlarmsAboutQuestionsThatDoNotFitTheScript) {
    EXPECT_NONFATAL_FAILURE(
        {
            FakeMessageBoxes messages;
            messages.YesNo("overwrite?", "t");
        },
        "unexpected question: YesNo \"t\": overwrite?");
    EXPECT_NONFATAL_FAILURE(
        {
            FakeMessageBoxes messages;
            messages.Expect(SeriesAnswer::Yes);
            messages.YesNoCancel("overwrite?", "t");
        },
        "fits another kind of question");
    EXPECT_NONFATAL_FAILURE(
        {
            FakeMessageBoxes messages;
            messages.Expect(StandardAnswer::Cancel);
            messages.YesNo("overwrite?", "t");
        },
        "Cancel is no answer");
    EXPECT_NONFATAL_FAILURE(
        {
            FakeMessageBoxes messages;
            messages.Expect(StandardAnswer::Yes);
        },
        "1 expected questions never came");
}

TEST(FakeEventLoop, AlarmsAboutAYieldThatNeverCame) {
    EXPECT_NONFATAL_FAILURE(
        {
            FakeHost host;
            host.events.At(2, [] {});
            host.events.Yield();
        },
        "yield 2 was scripted and never came");
}

TEST(FakeProgress, AlarmsAboutAButtonThatIsNotThere) {
    EXPECT_NONFATAL_FAILURE(
        {
            FakeProgress progress;
            progress.Open("Counting");
            progress.PressCancel();
        },
        "no Cancel button");
    EXPECT_NONFATAL_FAILURE(
        {
            FakeProgress progress;
            progress.SetCancelHandler([] {});
        },
        "no progress window");
}

}  // namespace
}  // namespace snippetarium::test
