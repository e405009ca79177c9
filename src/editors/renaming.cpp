#include "editors/renaming.h"

#include <string>

#include "editors/field_rules.h"
#include "store/class_markers.h"
#include "store/database.h"
#include "store/name_rules.h"
#include "store/reads_procedures.h"
#include "store/writes_applications.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

bool RenameProcedure(Database& db, const NodeIDs& node, std::string_view name) {
    if (!MayRenameCode(db, node.codeID, name)) return false;
    const std::string before = CodeNameByID(db, node.codeID);
    if (!RenameCode(db, node.codeID, name)) return false;
    RenameMarker(db, node.classID, before, name);
    return true;
}

}  // namespace

bool RenameNode(Database& db, const NodeIDs& node, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RenameNode, [&] {
        if (!MayEditNode(db, node) || !IsOneLine(db, name)) return false;
        if (node.codeID != 0) return RenameProcedure(db, node, name);
        if (node.classID != 0)
            return MayRenameClass(db, node.classID, name) && RenameClass(db, node.classID, name);
        return MayRenameApplication(db, node.appID, name) &&
               RenameApplication(db, node.appID, name);
    });
}

}  // namespace snippetarium
