#include "forms/fAddCode.h"

#include "editors/copy_names.h"
#include "editors/field_rules.h"
#include "forms/qt_text.h"
#include "navigator/node.h"
#include "store/code_copy.h"
#include "store/reads_procedures.h"

namespace snippetarium {

fAddCode::fAddCode(Database& db, std::int32_t classID, QWidget* parent)
    : CopyDialog(db,
                 {.form = "fAddCode",
                  .title = tr("Add Existing Procedure"),
                  .target = tr("A copy goes to the end of the class '%1'.")
                                .arg(ToQt(NameOfNode(db, {.classID = classID})).simplified()),
                  .source = tr("&Procedure to copy:"),
                  .nothingSelected = "Please select a subroutine.",
                  .procedure = Procedure::AddCodeEvent},
                 parent),
      classID_(classID) {}

std::string fAddCode::Proposal(const NodeIDs& node) {
    return NameForCodeCopy(Catalogue(), CodeNameByID(Catalogue(), node.codeID), classID_);
}

bool fAddCode::Copy(const NodeIDs& node, const std::string& name) {
    if (!IsOneLine(Catalogue(), name)) return false;
    copyID_ = CopyCode(Catalogue(), node.codeID, classID_, name);
    return copyID_ != 0;
}

}  // namespace snippetarium
