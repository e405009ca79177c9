#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/text_table.h"
#include "navigator/node.h"
#include "navigator/node_content.h"
#include "store/database.h"

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

std::string Question(Database& db, const NodeIDs& node, const NodeContent& content) {
    return DeletionQuestion(node, OneLine(NameOfNode(db, node)), content) +
           " What goes is kept in the trash for 30 days, and '" + std::string(kProgramName) +
           " trash' brings it back.";
}

void Report(CommandContext& context, const Json& deleted, const NodeIDs& node,
            const NodeContent& content) {
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
    const NodeContent content = ContentOf(db, node);
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
