#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/refused_error.h"
#include "cli/usage_error.h"
#include "store/class_copy.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY",             Occurs::Once, "the class"},
    {"APPLICATION-KEY", Occurs::Once, "the application that gets the copy"},
};
constexpr CommandExample kExamples[] = {
    {"copy a2f3 a5", "Puts a copy of a class, with its procedures, into application 5."},
};
// clang-format on

void RequireKind(const NodeIDs& node, NodeKind kind, std::string_view message) {
    if (KindOf(node) == kind) return;
    throw UsageError(std::string(message) + ", not '" + KeyOf(node) + "'.");
}

void Run(CommandContext& context) {
    const NodeIDs original = ReadNodeKey(*context.Given().Value("KEY"));
    const NodeIDs target = ReadNodeKey(*context.Given().Value("APPLICATION-KEY"));
    RequireKind(original, NodeKind::Class, "What is copied is a class, such as a12f34");
    RequireKind(target, NodeKind::Application,
                "A class is copied into an application, such as a12");
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, original);
    RequireNode(db, target);
    const std::int32_t copyID = CopyClass(db, original.classID, target.appID);
    RequireDone(copyID != 0);
    ReportNode(context, db, "Copied", ClassNode(db, copyID));
}

}  // namespace

constexpr CliCommand kCopyCommand = {
    .name = "copy",
    .summary = "copy a class with its procedures into an application",
    .description =
        "Copies a class with its procedures, and with the comments, languages, authors, dates and "
        "keywords of all of them, into an application, and prints the copy's key. Bookmarks stay "
        "with the original. An application that has a class of that name already gets none.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
