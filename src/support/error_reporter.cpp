#include "support/error_reporter.h"

#include <cstdio>
#include <exception>
#include <new>

#include "support/message_boxes.h"

namespace snippetarium {

namespace {

constexpr std::string_view kContactLines =
    "the Snippetarium developers.\r\n"
    "\r\nE-mail: support@snippetarium.example\r\n"
    "\r\nWeb: https://snippetarium.example/support";

/// The number of work that was cancelled (engine/engine_error.h).
constexpr std::int32_t kCancelled = 3059;

/// What the user cancelled has come to an end early, but it is no failure: nobody is to write down
/// numbers and send them to the developers.
void Show(MessageBoxes& messages, Procedure procedure, const ErrorDetails& error) {
    if (error.number == kCancelled)
        return ShowInformation(messages, error.description, kInformationTitle);
    ShowErrorMessage(messages, ErrorMessageText(procedure, error), kErrorTitle);
}

}  // namespace

ErrorDetails CurrentError() {
    try {
        throw;
    } catch (const Error& error) {
        return {error.Number(), error.Description()};
    } catch (const std::bad_alloc&) {
        return {error_number::kOutOfMemory, "Out of memory."};
    } catch (const std::exception& error) {
        return {error_number::kInternal, error.what()};
    } catch (...) {
        return {error_number::kInternal, "A failure of an unknown kind."};
    }
}

std::string ErrorMessageText(Procedure procedure, const ErrorDetails& error) {
    std::string text = "An error has occurred.\r\n\r\nQRT Error Code: ";
    text += std::to_string(ErrorCode(procedure));
    text += "\r\n\r\nError Number: " + std::to_string(error.number);
    text += "\r\n\r\nError Description: " + error.description;
    text +=
        "\r\n\r\nPlease write down the QRT error code, error number, error description, "
        "the situation under which the error occurred, and report to ";
    text += kContactLines;
    return text;
}

void ReportError(MessageBoxes& messages, Procedure procedure) {
    Show(messages, procedure, CurrentError());
}

void ErrorReporter::ReportCurrent(Procedure procedure) noexcept {
    try {
        throw;
    } catch (const ReportedError&) {
        return;
    } catch (...) {
        try {
            const EventScope events(*this);
            if (!firstReported_) firstReported_ = CurrentError();
            ReportError(messages_, procedure);
        } catch (...) {
            // A second box would fail like this one, and an exception would end the program.
            std::fprintf(stderr, "QRT Error Code %d: the message could not be shown.\n",
                         static_cast<int>(ErrorCode(procedure)));
        }
    }
}

void ErrorReporter::ThrowReported() {
    const ErrorDetails error = CurrentError();
    throw ReportedError(error.number, error.description);
}

}  // namespace snippetarium
