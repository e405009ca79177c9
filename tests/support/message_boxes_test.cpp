#include "support/message_boxes.h"

#include <gtest/gtest.h>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

using snippetarium::test::BoxKind;
using snippetarium::test::FakeMessageBoxes;
using snippetarium::test::ShownBox;

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
