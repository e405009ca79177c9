#include "export/whole_texts.h"

#include <algorithm>
#include <array>

#include "store/reads_source_files.h"
#include "store/sql_text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

struct PartName {
    std::string_view part;
    std::string_view name;
};

// clang-format off
constexpr std::array kPartNames{
    PartName{"classDI", "class"},
    PartName{"classComment", "comment of the class"},
    PartName{"code", "procedure"},
    PartName{"codeComment", "comment of the procedure"},
};
// clang-format on

std::string Name(const StoredText& stored) {
    const auto* const part = std::ranges::find(kPartNames, stored.part, &PartName::part);
    const std::string_view name = part == kPartNames.end() ? stored.part : part->name;
    return std::string(name) + " '" + std::string(stored.ownerName) + "'";
}

}  // namespace

WholeTexts::WholeTexts(Database& db, std::int32_t classID) {
    for (Recordset row = OverlongTextsOfClass(db, classID); !row.EndOfFile(); row.MoveNext()) {
        const auto kind = static_cast<OwnerKind>(row["ownerTableID"].Long());
        rests_[{kind, row["ownerID"].Long(), row["part"].Text()}] = row["text"].Text();
    }
}

std::string WholeTexts::Whole(const StoredText& stored, Remarks& remarks) const {
    std::string text(stored.text);
    const auto rest = rests_.find({stored.owner.kind, stored.owner.id, std::string(stored.part)});
    if (rest == rests_.end()) return text;
    if (CharacterCount(text) == kLongTextLimit) return text += rest->second;
    remarks.push_back("The " + Name(stored) +
                      " was too long for the catalogue and has been changed since: the " +
                      std::to_string(CharacterCount(rest->second)) +
                      " characters behind its first 64,000 are not written.");
    return text;
}

}  // namespace snippetarium
