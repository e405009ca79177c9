#include "forms/fAddClass.h"

#include "editors/copy_names.h"
#include "editors/field_rules.h"
#include "forms/qt_text.h"
#include "navigator/node.h"
#include "store/class_copy.h"
#include "store/reads_classes.h"

namespace snippetarium {

fAddClass::fAddClass(Database& db, std::int32_t appID, QWidget* parent)
    : CopyDialog(db,
                 {.form = "fAddClass",
                  .title = tr("Add Existing Class"),
                  .target = tr("A copy with all procedures goes into the application '%1'.")
                                .arg(ToQt(NameOfNode(db, {.appID = appID})).simplified()),
                  .source = tr("C&lass to copy:"),
                  .nothingSelected = "Please select a class/module.",
                  .procedure = Procedure::AddClassEvent},
                 parent),
      appID_(appID) {}

std::string fAddClass::Proposal(const NodeIDs& node) {
    return NameForClassCopy(Catalogue(), ClassNameByID(Catalogue(), node.classID), appID_);
}

bool fAddClass::Copy(const NodeIDs& node, const std::string& name) {
    if (!IsOneLine(Catalogue(), name)) return false;
    copyID_ = CopyClass(Catalogue(), node.classID, appID_, name);
    return copyID_ != 0;
}

}  // namespace snippetarium
