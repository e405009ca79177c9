#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "support/error.h"
#include "support/host.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

/// Number and text of a failure, as the failing operation raised them.
struct ErrorDetails {
    std::int32_t number = 0;
    std::string description;
};

/// Thrown on by an inner guard after it has reported a failure: the guards around it neither report
/// it again nor go on. Carries the number and text of the failure that was reported.
class ReportedError : public Error {
  public:
    using Error::Error;
};

/// Number and text of the exception being handled. Call it inside a catch block. Lack of memory has
/// a number of its own; any other exception that is no Error gets the number of an internal
/// failure, with its own what() text where it has one.
ErrorDetails CurrentError();

/// The text of the error message: code (10000 + the procedure's number), number and description of
/// the failure, and where to send a report.
std::string ErrorMessageText(Procedure procedure, const ErrorDetails& error);

/// Shows the error message for the exception being handled. It ends nothing, logs nothing and is
/// not guarded itself: what the message box throws leaves it.
void ReportError(MessageBoxes& messages, Procedure procedure);

/// Shows failures to the user. One for a run of the program, kept in its Host: everything that is
/// guarded shares it, and so does the event loop.
class ErrorReporter {
  public:
    explicit ErrorReporter(MessageBoxes& messages) : messages_(messages) {}
    ErrorReporter(const ErrorReporter&) = delete;
    ErrorReporter& operator=(const ErrorReporter&) = delete;

    /// Counts the guards that are running, one inside the other.
    class GuardScope {
      public:
        explicit GuardScope(ErrorReporter& reporter) : reporter_(reporter) { ++reporter_.depth_; }
        ~GuardScope() { --reporter_.depth_; }
        GuardScope(const GuardScope&) = delete;
        GuardScope& operator=(const GuardScope&) = delete;
        bool IsEnclosed() const { return reporter_.depth_ > 1; }

      private:
        ErrorReporter& reporter_;
    };

    /// Counts the guards anew while events run, and afterwards goes on with the old count. An
    /// operation that an event starts stands alone, although the guards of the waiting operation
    /// are still on the stack: it must return its default, because what it threw would fly through
    /// the event loop into an operation that has nothing to do with it.
    class EventScope {
      public:
        explicit EventScope(ErrorReporter& reporter)
            : reporter_(reporter), waiting_(std::exchange(reporter.depth_, 0)) {}
        ~EventScope() { reporter_.depth_ = waiting_; }
        EventScope(const EventScope&) = delete;
        EventScope& operator=(const EventScope&) = delete;

      private:
        ErrorReporter& reporter_;
        int waiting_;
    };

    /// For a catch block: reports the exception being handled, unless an inner guard did. Throws
    /// nothing: where the message cannot be shown, one line on the standard error says so.
    void ReportCurrent(Procedure procedure) noexcept;
    /// For a catch block, after ReportCurrent: throws the failure on as a ReportedError.
    [[noreturn]] static void ThrowReported();

    /// The first failure that was reported in this run of the program, if any was.
    const std::optional<ErrorDetails>& FirstReported() const { return firstReported_; }

    MessageBoxes& Messages() { return messages_; }

  private:
    MessageBoxes& messages_;
    int depth_ = 0;
    std::optional<ErrorDetails> firstReported_;
};

}  // namespace snippetarium
