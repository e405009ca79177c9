#include "forms/dropped_text.h"

#include "editors/field_rules.h"
#include "forms/encoding_box.h"
#include "store/database.h"
#include "store/settings.h"
#include "support/disk_file_system.h"
#include "support/encoding.h"
#include "support/message_boxes.h"
#include "support/text_file.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoFile = "Please drop one file.";
constexpr std::string_view kTooLarge =
    "This file is too large for one text of the catalogue.  Import it with Import from Code File "
    "in the menu File.";
constexpr std::string_view kReplaceQuestion =
    "Do you want to put the text of the file in the place of what is there?";
constexpr std::string_view kOddBytes =
    "The file holds bytes that are no text.  They are kept as they are.";
/// A text of the catalogue has at most 64,000 characters.
constexpr std::uint64_t kLargestFile = 1'000'000;

std::string EncodingSetting(Database& db) {
    const std::string name = Setting(db, kEncodingSetting);
    return IsKnownEncoding(name) ? name : std::string(kDefaultEncoding);
}

}  // namespace

std::optional<std::string> ReadDroppedText(Database& db, const std::string& path,
                                           bool isEditorEmpty) {
    const auto refuse = [&db](std::string_view why) {
        RefuseEntry(db, why);
        return std::nullopt;
    };
    const DiskFileSystem files;
    if (!files.FileExists(path)) return refuse(kNoFile);
    if (files.FileSize(path) > kLargestFile) return refuse(kTooLarge);
    const TextFile file = DecodeTextFile(files.ReadFile(path), EncodingSetting(db));
    MessageBoxes& messages = db.GetHost().messages;
    if (!isEditorEmpty &&
        AskYesNo(messages, kReplaceQuestion, kQuestionTitle) != StandardAnswer::Yes)
        return std::nullopt;
    if (!file.nulLines.Empty() || !file.undecodableLines.Empty())
        ShowInformation(messages, kOddBytes, kInformationTitle);
    return file.text;
}

}  // namespace snippetarium
