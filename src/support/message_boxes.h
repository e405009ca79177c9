#pragma once

#include <cstdint>
#include <string_view>

#include "support/host.h"

namespace snippetarium {

// The titles of the program's boxes.
inline constexpr std::string_view kInformationTitle = "Snippetarium Information";
inline constexpr std::string_view kErrorTitle = "Snippetarium Error Message";
inline constexpr std::string_view kQuestionTitle = "Snippetarium Question";
inline constexpr std::string_view kLoadingTitle = "Snippetarium Loading";
/// For the message after which the program ends because it has no catalogue.
inline constexpr std::string_view kFatalTitle = "Snippetarium";

void ShowInformation(MessageBoxes& messages, std::string_view message, std::string_view title);
void ShowErrorMessage(MessageBoxes& messages, std::string_view message, std::string_view title);

/// Answers Yes or No.
StandardAnswer AskYesNo(MessageBoxes& messages, std::string_view message, std::string_view title);
/// Answers Yes, No or Cancel.
StandardAnswer AskYesNoCancel(MessageBoxes& messages, std::string_view message,
                              std::string_view title);

/// Tells the user, in an error box, that a function has no meaning for the argument it was given.
/// The correct values are listed one a line.
void ReportBadArgument(MessageBoxes& messages, std::string_view functionName,
                       std::string_view argumentName, std::int16_t value,
                       std::string_view correctValues, std::string_view title);

}  // namespace snippetarium
