#include "support/error_reporter.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <system_error>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

using snippetarium::test::BoxKind;
using snippetarium::test::FakeMessageBoxes;
using snippetarium::test::ShownBox;

constexpr std::string_view kTail =
    "\r\n\r\nPlease write down the QRT error code, error number, error description, the situation "
    "under which the error occurred, and report to the Snippetarium developers.\r\n\r\n"
    "E-mail: support@snippetarium.example\r\n\r\nWeb: https://snippetarium.example/support";

TEST(ErrorMessage, NamesCodeNumberAndDescription) {
    const struct {
        Procedure procedure;
        ErrorDetails error;
        std::string_view head;
    } cases[] = {
        {Procedure::OpenCatalogue,
         {3051, "The file is read-only."},
         "An error has occurred.\r\n\r\nQRT Error Code: 11151\r\n\r\nError Number: 3051"
         "\r\n\r\nError Description: The file is read-only."},
        {Procedure::ScalarLong,
         {-2147467259, "two\r\nlines"},
         "An error has occurred.\r\n\r\nQRT Error Code: 10787\r\n\r\nError Number: -2147467259"
         "\r\n\r\nError Description: two\r\nlines"},
        {Procedure::FSObjectExists,
         {0, ""},
         "An error has occurred.\r\n\r\nQRT Error Code: 10987\r\n\r\nError Number: 0"
         "\r\n\r\nError Description: "},
    };
    for (const auto& [procedure, error, head] : cases) {
        EXPECT_EQ(ErrorMessageText(procedure, error), std::string(head) + std::string(kTail));
    }
}

template <typename Thrown>
ErrorDetails DetailsOf(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return CurrentError();
    }
}

TEST(CurrentError, GivesEveryKindOfExceptionANumberAndAText) {
    const struct {
        ErrorDetails details;
        std::int32_t number;
        std::string_view text;
    } cases[] = {
        {DetailsOf(Error(3022, "twice")), 3022, "twice"},
        {DetailsOf(ReportedError(76, "no folder")), 76, "no folder"},
        {DetailsOf(std::bad_alloc()), error_number::kOutOfMemory, "Out of memory."},
        {DetailsOf(std::bad_array_new_length()), error_number::kOutOfMemory, "Out of memory."},
        {DetailsOf(std::out_of_range("too far")), error_number::kInternal, "too far"},
        {DetailsOf(5), error_number::kInternal, "A failure of an unknown kind."},
    };
    for (const auto& [details, number, text] : cases) {
        EXPECT_EQ(details.number, number) << text;
        EXPECT_EQ(details.description, text);
    }
}

TEST(ReportError, ShowsTheMessageInOneErrorBox) {
    FakeMessageBoxes messages;
    try {
        throw Error(53, "gone");
    } catch (...) {
        ReportError(messages, Procedure::GetFromPath);
    }
    const ShownBox expected{BoxKind::Error, "Snippetarium Error Message",
                            ErrorMessageText(Procedure::GetFromPath, {53, "gone"})};
    EXPECT_EQ(messages.shown, std::vector{expected});
}

}  // namespace
}  // namespace snippetarium
