#include "support/message_boxes.h"

#include <string>

namespace snippetarium {

void ShowInformation(MessageBoxes& messages, std::string_view message, std::string_view title) {
    messages.Information(message, title);
}

void ShowErrorMessage(MessageBoxes& messages, std::string_view message, std::string_view title) {
    messages.Error(message, title);
}

StandardAnswer AskYesNo(MessageBoxes& messages, std::string_view message, std::string_view title) {
    return messages.YesNo(message, title);
}

StandardAnswer AskYesNoCancel(MessageBoxes& messages, std::string_view message,
                              std::string_view title) {
    return messages.YesNoCancel(message, title);
}

void ReportBadArgument(MessageBoxes& messages, std::string_view functionName,
                       std::string_view argumentName, std::int16_t value,
                       std::string_view correctValues, std::string_view title) {
    std::string text = "You have provided '";
    text += std::to_string(value);
    text += "' as the argument '";
    text += argumentName;
    text += "' for the function '";
    text += functionName;
    text += "' It is not correct.\r\n\r\nThe correct values are:\r\n\r\n";
    text += correctValues;
    text += "\r\n\r\nPlease type a correct value for this argument.";
    ShowErrorMessage(messages, text, title);
}

}  // namespace snippetarium
