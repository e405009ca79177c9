#include "editors/field_rules.h"

#include <algorithm>
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

bool IsControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20U || byte == 0x7FU;
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
    return std::ranges::none_of(name, IsControl) || RefuseEntry(db, kNotOneLine);
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
