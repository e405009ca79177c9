#include "tests/fakes.h"

#include <gtest/gtest-spi.h>

namespace snippetarium::test {
namespace {

// The fakes are trusted by every other test, so their own alarms are tested.

TEST(FakeMessageBoxes, AnswersInOrder) {
    FakeMessageBoxes messages;
    messages.Expect(StandardAnswer::Cancel);
    messages.Expect(SeriesAnswer::NoToAll);
    messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(messages.YesNoCancel("a", "t"), StandardAnswer::Cancel);
    EXPECT_EQ(messages.Series("b"), SeriesAnswer::NoToAll);
    EXPECT_EQ(messages.YesNo("c", "t"), StandardAnswer::Yes);
    ASSERT_EQ(messages.shown.size(), 3U);
    EXPECT_EQ(messages.shown[1], (ShownBox{BoxKind::Series, "", "b"}));
}

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

TEST(FakeEventLoop, RunsEachActionAtItsYield) {
    FakeHost host;
    FakeEventLoop& events = host.events;
    std::vector<int> ran;
    events.At(2, [&] { ran.push_back(events.yields); });
    events.At(2, [&] { events.At(3, [&] { ran.push_back(events.yields * 10); }); });
    for (int i = 0; i < 4; ++i)
        events.Yield();
    EXPECT_EQ(ran, (std::vector{2, 30}));
    EXPECT_EQ(events.yields, 4);
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

TEST(FakeProgress, RecordsWhatIsShownAndPressesCancel) {
    FakeHost host;
    Progress& progress = host.host.progress;
    progress.Open("Starting");
    int presses = 0;
    progress.SetCancelHandler([&] {
        ++presses;
        progress.Close();
    });
    progress.SetContentLine("a.bas");
    progress.SetTitle("Importing");
    progress.SetUnit(12.5);
    progress.SetTotal(progress.Unit() * 2);
    host.PressCancelAt(1);
    host.host.events.Yield();
    EXPECT_EQ(presses, 1);
    EXPECT_FALSE(progress.IsOpen());
    EXPECT_EQ(host.progress.TextsOf(ProgressText::Title),
              (std::vector<std::string>{"Starting", "Importing"}));
    EXPECT_EQ(host.progress.unitValues, std::vector{12.5});
    EXPECT_EQ(host.progress.totalValues, std::vector{25.0});
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
