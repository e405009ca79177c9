#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/text_table.h"
#include "store/deletion.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/error.h"
#include "support/text.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::Once, "the application, class or procedure"},
};
constexpr CommandExample kExamples[] = {
    {"delete a2f2c1",     "Says what will go, asks, and then deletes a procedure."},
    {"--yes delete a2f2", "Deletes a class with its procedures without asking."},
};
// clang-format on

/// What is below a node.
struct Content {
    std::size_t classes = 0;
    std::size_t procedures = 0;
};

/// Application 1 and class 1, which are emptied and stay.
bool IsPermanent(const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Application:
            return node.appID == kUndefinedApplicationID;
        case NodeKind::Class:
            return node.classID == kUndefinedClassID;
        default:
            return false;
    }
}

Content CountContent(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Application: {
            const std::size_t classes = ClassIDNameRSByAppID(db, node.appID).RowCount();
            const auto procedures = static_cast<std::size_t>(CountCodeByAppID(db, node.appID));
            return {IsPermanent(node) ? classes - 1 : classes, procedures};
        }
        case NodeKind::Class:
            return {0, CodeIDCodeNameByClassID(db, node.classID).RowCount()};
        default:
            return {};
    }
}

std::string ContentText(const NodeIDs& node, const Content& content) {
    const std::string procedures = Counted(content.procedures, "procedure", "procedures");
    if (KindOf(node) == NodeKind::Class) return procedures;
    return Counted(content.classes, "class", "classes") + " and " + procedures;
}

std::string Question(Database& db, const NodeIDs& node, const Content& content) {
    const std::string what =
        std::string(KindName(KindOf(node))) + " '" + OneLine(NameOfNode(db, node)) + "'";
    const std::string trash = " What goes is kept in the trash for 30 days, and '" +
                              std::string(kProgramName) + " trash' brings it back.";
    if (IsPermanent(node)) {
        return "Delete all that is in the " + what + ", " + ContentText(node, content) +
               "? It stays itself, empty." + trash;
    }
    if (KindOf(node) == NodeKind::Procedure) return "Delete the " + what + "?" + trash;
    return "Delete the " + what + " with its " + ContentText(node, content) + "?" + trash;
}

void DeleteNode(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return DeleteCode(db, node.codeID);
        case NodeKind::Class:
            return DeleteClass(db, node.classID);
        default:
            return DeleteApplication(db, node.appID);
    }
}

void Report(CommandContext& context, const Json& deleted, const NodeIDs& node,
            const Content& content) {
    if (context.WantsJson()) {
        Json document = deleted;
        document["stays"] = IsPermanent(node);
        document["classes"] = content.classes;
        document["procedures"] = content.procedures;
        return context.SetDocument(document);
    }
    context.Output() << (IsPermanent(node) ? "Emptied: " : "Deleted: ") << KeyOf(node) << "  "
                     << OneLine(deleted["name"].get<std::string>()) << '\n';
}

void Run(CommandContext& context) {
    const NodeIDs node = ReadNodeKey(*context.Given().Value("KEY"));
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, node);
    const Content content = CountContent(db, node);
    context.RequireConsent(Question(db, node, content));
    const Json deleted = NodeDocument(db, node);
    DeleteNode(db, node);
    // A stage that failed has been reported, and what was left under the node kept it.
    const bool failed = db.Reporter().FirstReported().has_value();
    if (!failed) Report(context, deleted, node, content);
}

}  // namespace

constexpr CliCommand kDeleteCommand = {
    .name = "delete",
    .summary = "delete an application, a class or a procedure with all that belongs to it",
    .description =
        "Deletes an application with its classes and their procedures, a class with its "
        "procedures, or one procedure, and with them their keywords, dates, author links and "
        "bookmarks. It says what will go and asks first.\n\n"
        "Application 1 and class 1, which take in what belongs to no other, are emptied and stay. "
        "What was deleted is kept in the trash for 30 days, and 'trash' brings it back.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
