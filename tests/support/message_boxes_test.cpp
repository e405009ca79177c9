#include "support/message_boxes.h"

#include <gtest/gtest.h>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

using snippetarium::test::BoxKind;
using snippetarium::test::FakeMessageBoxes;
using snippetarium::test::ShownBox;

TEST(MessageBoxes, EachHelperShowsItsKindOfBox) {
    FakeMessageBoxes messages;
    ShowInformation(messages, "a", kInformationTitle);
    ShowErrorMessage(messages, "b", kFatalTitle);
    messages.Expect(StandardAnswer::No);
    EXPECT_EQ(AskYesNo(messages, "c", kQuestionTitle), StandardAnswer::No);
    messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(AskYesNoCancel(messages, "d", kQuestionTitle), StandardAnswer::Yes);
    const std::vector<ShownBox> expected{
        {BoxKind::Information, "Snippetarium Information", "a"},
        {BoxKind::Error, "Snippetarium", "b"},
        {BoxKind::YesNo, "Snippetarium Question", "c"},
        {BoxKind::YesNoCancel, "Snippetarium Question", "d"},
    };
    EXPECT_EQ(messages.shown, expected);
}

TEST(MessageBoxes, AnswersHaveTheValuesThatCallersCompare) {
    EXPECT_EQ(static_cast<int>(StandardAnswer::Yes), 6);
    EXPECT_EQ(static_cast<int>(StandardAnswer::No), 7);
    EXPECT_EQ(static_cast<int>(StandardAnswer::Cancel), 2);
    EXPECT_EQ(static_cast<int>(SeriesAnswer::Yes), 1);
    EXPECT_EQ(static_cast<int>(SeriesAnswer::YesToAll), 2);
    EXPECT_EQ(static_cast<int>(SeriesAnswer::No), 3);
    EXPECT_EQ(static_cast<int>(SeriesAnswer::NoToAll), 4);
    EXPECT_EQ(static_cast<int>(SeriesAnswer::Cancel), 5);
}

TEST(MessageBoxes, ABadArgumentIsNamedWithTheCorrectValues) {
    FakeMessageBoxes messages;
    ReportBadArgument(messages, "OpenTextFile", "read1Append8", -2,
                      "1: for reading\r\n8: for appending", kErrorTitle);
    const ShownBox expected{
        BoxKind::Error, "Snippetarium Error Message",
        "You have provided '-2' as the argument 'read1Append8' for the function 'OpenTextFile' "
        "It is not correct.\r\n\r\nThe correct values are:\r\n\r\n1: for reading\r\n"
        "8: for appending\r\n\r\nPlease type a correct value for this argument."};
    EXPECT_EQ(messages.shown, std::vector{expected});
}

}  // namespace
}  // namespace snippetarium
