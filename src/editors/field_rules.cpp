#include "editors/field_rules.h"

#include <cstddef>
#include <string>

#include "store/database.h"
#include "store/owner.h"
#include "store/sql_text.h"
#include "support/message_boxes.h"
#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNotOneLine =
    "A name cannot hold a line break, a tab or another control character.";
constexpr std::string_view kPermanentApplication = "You cannot view or edit this application.";
constexpr std::string_view kPermanentClass = "You cannot view or edit this class.";

/// U+2028 and U+2029 break lines and paragraphs.
bool IsControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
           character == 0x2029;
}

bool HasControl(std::string_view name) {
    for (std::size_t position = 0; position < name.size();) {
        if (IsControl(DecodeUtf8(name, position))) return true;
    }
    return false;
}

}  // namespace

bool RefuseEntry(Database& db, std::string_view message) {
    ShowInformation(db.GetHost().messages, message, kInformationTitle);
    return false;
}

bool RefuseSeveralWords(Database& db) {
    return RefuseEntry(db, "Please enter one word. Blanks and punctuation separate words.");
}

bool IsOneLine(Database& db, std::string_view name) {
    return !HasControl(name) || RefuseEntry(db, kNotOneLine);
}

bool FitsLongText(Database& db, std::string_view what, std::string_view text) {
    if (text.size() <= kLongTextLimit) return true;
    const std::size_t length = CharacterCount(text);
    if (length <= kLongTextLimit) return true;
    return RefuseEntry(db, Sql("The ", what, " is too long: it has ", Grouped(length),
                               " characters, and ", Grouped(kLongTextLimit), " can be stored."));
}

bool MayEditNode(Database& db, const NodeIDs& node) {
    if (node.codeID != 0) return true;
    if (node.classID == kUndefinedClassID) return RefuseEntry(db, kPermanentClass);
    if (node.classID == 0 && node.appID == kUndefinedApplicationID)
        return RefuseEntry(db, kPermanentApplication);
    return true;
}

}  // namespace snippetarium
