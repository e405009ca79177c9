#include "navigator/node_requests.h"

#include "editors/field_rules.h"
#include "navigator/node.h"
#include "store/database.h"
#include "store/reads_classes.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoApplication = "Please select an application.";
constexpr std::string_view kNoClass = "Please select a class/module.";
constexpr std::string_view kNoProcedure = "Please select a subroutine.";
constexpr std::string_view kGone = "This Class or Code has been deleted.";
constexpr std::string_view kMayNotRename = "You cannot edit this name.";

std::string_view EditCaption(NodeKind kind) {
    switch (kind) {
        case NodeKind::Procedure:
            return kEditProcedureCaption;
        case NodeKind::Class:
            return kEditClassCaption;
        default:
            return kEditApplicationCaption;
    }
}

EditRequest CheckEdit(Database& db, const NodeIDs& node) {
    return Guarded(db.Reporter(), Procedure::CheckEdit, [&]() -> EditRequest {
        if (!MayEditNode(db, node)) return std::nullopt;
        return EditTarget{.kind = KindOf(node), .node = node, .caption = EditCaption(KindOf(node))};
    });
}

/// The file's own name in a stored path, which has backslashes.
std::string LastPart(const std::string& path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

std::string ExtensionOf(const std::string& fileName) {
    const std::size_t dot = fileName.rfind('.');
    return dot == std::string::npos ? std::string() : fileName.substr(dot);
}

/// A name without the characters that no file name may have on one platform or another.
std::string AsFileName(std::string_view name) {
    std::string fileName;
    for (const char character : name.substr(0, name.find('('))) {
        const bool isForbidden =
            static_cast<unsigned char>(character) < ' ' ||
            std::string_view("\\/:*?\"<>|").find(character) != std::string_view::npos;
        fileName += isForbidden ? '_' : character;
    }
    return fileName;
}

std::string FileNameFor(Database& db, const NodeIDs& node, const std::string& name) {
    if (node.classID == 0) return {};
    const std::string classFile = LastPart(ClassPathInAppByClassID(db, node.classID));
    if (node.codeID != 0) return AsFileName(name) + ExtensionOf(classFile);
    return classFile.empty() ? AsFileName(name) : classFile;
}

std::optional<ExportTarget> CheckExport(Database& db, const NodeIDs& node) {
    return Guarded(db.Reporter(), Procedure::CheckExport, [&]() -> std::optional<ExportTarget> {
        const std::string name = NameOfNode(db, node);
        if (name.empty()) {
            ShowErrorMessage(db.GetHost().messages, kGone, kErrorTitle);
            return std::nullopt;
        }
        const NodeKind kind = KindOf(node);
        return ExportTarget{
            .kind = kind,
            .node = node,
            .title = "Export " + std::string(KindName(kind)) + ": " + name,
            .fileName = FileNameFor(db, node, name),
        };
    });
}

}  // namespace

EditRequest EditSelectedApplication(Database& db, const NodeIDs& selection) {
    if (selection.appID != 0) return CheckEdit(db, {.appID = selection.appID});
    RefuseEntry(db, kNoApplication);
    return std::nullopt;
}

EditRequest EditSelectedClass(Database& db, const NodeIDs& selection) {
    if (selection.classID != 0)
        return CheckEdit(db, {.appID = selection.appID, .classID = selection.classID});
    RefuseEntry(db, kNoClass);
    return std::nullopt;
}

EditRequest EditSelectedProcedure(Database& db, const NodeIDs& selection) {
    if (selection.codeID != 0) return CheckEdit(db, selection);
    RefuseEntry(db, kNoProcedure);
    return std::nullopt;
}

EditRequest EditNode(Database& db, const NodeIDs& node) {
    return node == NodeIDs{} ? std::nullopt : CheckEdit(db, node);
}

EditRequest EditShownPage(Database& db, const NodeIDs& shown) {
    return shown.codeID != 0 ? EditSelectedProcedure(db, shown) : EditSelectedClass(db, shown);
}

NewTarget NewClassIn(const NodeIDs& selection) {
    return {.kind = NodeKind::Class, .appID = selection.appID};
}

NewTarget NewProcedureIn(const NodeIDs& selection) {
    return {.kind = NodeKind::Procedure, .appID = selection.appID, .classID = selection.classID};
}

NewTarget AddNewAt(const NodeIDs& node) {
    if (node == NodeIDs{}) return {.kind = NodeKind::Application};
    return node.classID == 0 ? NewClassIn(node) : NewProcedureIn(node);
}

std::optional<CopyTarget> AddExistingClass(Database& db, const NodeIDs& selection) {
    if (selection.appID != 0) return CopyTarget{.kind = NodeKind::Class, .appID = selection.appID};
    RefuseEntry(db, kNoApplication);
    return std::nullopt;
}

std::optional<CopyTarget> AddExistingAt(Database& db, const NodeIDs& node) {
    if (node.classID == 0) return AddExistingClass(db, node);
    return CopyTarget{.kind = NodeKind::Procedure, .appID = node.appID, .classID = node.classID};
}

std::optional<ExportTarget> ExportShownPage(Database& db, const NodeIDs& shown) {
    return shown.classID == 0 ? std::nullopt : CheckExport(db, shown);
}

std::optional<ExportTarget> ExportSelected(Database& db, const NodeIDs& selection) {
    return selection == NodeIDs{} ? std::nullopt : CheckExport(db, selection);
}

bool MayRename(Database& db, const NodeIDs& node) {
    if (node == NodeIDs{}) return false;
    const bool isPermanent = node == NodeIDs{.appID = kUndefinedApplicationID} ||
                             (node.codeID == 0 && node.classID == kUndefinedClassID);
    const std::string name = isPermanent ? std::string() : NameOfNode(db, node);
    if (!isPermanent && name != kUndefinedApplicationText && name != kUndefinedClassText)
        return true;
    return RefuseEntry(db, kMayNotRename);
}

ContentsCaptions CaptionsFor(const NodeIDs& node) {
    if (node == NodeIDs{}) return {.addNew = "Add New Application"};
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return {"Edit Procedure", "Delete Procedure", "Export Procedure", "Add New Procedure",
                    "Add Existing Procedure"};
        case NodeKind::Class:
            return {"Edit Class/Module", "Delete Class/Module", "Export Class/Module",
                    "Add New Procedure", "Add Existing Procedure"};
        default:
            return {"Edit Application", "Delete Application", "Export Application", "Add New Class",
                    "Add Existing Class"};
    }
}

}  // namespace snippetarium
