#include "export/export_questions.h"

#include <optional>

#include "support/message_boxes.h"

namespace snippetarium {

namespace {

std::optional<FileChoice> ChoiceWithoutAsking(ExistingFile existing) {
    switch (existing) {
        case ExistingFile::Append:
            return FileChoice::Append;
        case ExistingFile::Overwrite:
            return FileChoice::Replace;
        case ExistingFile::Skip:
            return FileChoice::Skip;
        case ExistingFile::Ask:
            break;
    }
    return std::nullopt;
}

}  // namespace

bool MayOverwriteSource(MessageBoxes& messages, SourceKind kind) {
    const std::string files = kind == SourceKind::OneFile ? "file" : "files";
    return AskYesNo(messages,
                    "Your export destination is the same as original source location.\r\n"
                    "Are you sure you want to overwrite your existing source " +
                        files + "?",
                    kQuestionTitle) == StandardAnswer::Yes;
}

FileChoice ChooseForExisting(MessageBoxes& messages, std::string_view fileName,
                             ExistingFile existing) {
    if (const auto choice = ChoiceWithoutAsking(existing)) return *choice;
    const std::string question = "The file '" + std::string(fileName) +
                                 "' already exists.\r\n"
                                 "Would you like to append the content to the end of the file?"
                                 "Click 'Yes' to append, click 'No' to overwrite.";
    switch (AskYesNoCancel(messages, question, kQuestionTitle)) {
        case StandardAnswer::Yes:
            return FileChoice::Append;
        case StandardAnswer::No:
            return FileChoice::Replace;
        case StandardAnswer::Cancel:
            break;
    }
    return FileChoice::Cancel;
}

std::string AlreadyExists(std::string_view fileName) {
    return "The file '" + std::string(fileName) + "' was not exported, because it already exists.";
}

FileChoice ExistingFilesChoice::Choose(std::string_view fileName) {
    if (const auto choice = ChoiceWithoutAsking(existing_)) return *choice;
    switch (messages_.Series("  The file " + std::string(fileName) +
                             " already exists.\r\nWould you like to overwrite the file?")) {
        case SeriesAnswer::YesToAll:
            existing_ = ExistingFile::Overwrite;
            return FileChoice::Replace;
        case SeriesAnswer::Yes:
            return FileChoice::Replace;
        case SeriesAnswer::NoToAll:
            existing_ = ExistingFile::Skip;
            return FileChoice::Skip;
        case SeriesAnswer::No:
            return FileChoice::Skip;
        case SeriesAnswer::Cancel:
        case SeriesAnswer::None:
            break;
    }
    return FileChoice::Cancel;
}

}  // namespace snippetarium
