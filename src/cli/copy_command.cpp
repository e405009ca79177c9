#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/usage_error.h"
#include "editors/field_rules.h"
#include "navigator/node.h"
#include "store/class_copy.h"
#include "store/code_copy.h"

namespace snippetarium {

namespace {

constexpr std::string_view kName = "--name";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY",        Occurs::Once, "the class or the procedure"},
    {"TARGET-KEY", Occurs::Once, "the application that gets the class, or the class that gets the procedure"},
};
constexpr CommandOption kOptions[] = {
    {kName, "NAME", "what the copy is called; without it, as the original"},
};
constexpr CommandExample kExamples[] = {
    {"copy a2f3 a5",                       "Puts a copy of a class, with its procedures, into application 5."},
    {"copy a2f3c5 a2f3 --name 'Draw twice'", "Puts a copy of a procedure beside it."},
};
// clang-format on

void RequireKind(const NodeIDs& node, NodeKind kind, std::string_view message) {
    if (KindOf(node) == kind) return;
    throw UsageError(std::string(message) + ", not '" + KeyOf(node) + "'.");
}

void RequireKinds(const NodeIDs& original, const NodeIDs& target) {
    if (KindOf(original) == NodeKind::Procedure)
        return RequireKind(target, NodeKind::Class,
                           "A procedure is copied into a class, such as a12f34");
    RequireKind(original, NodeKind::Class,
                "What is copied is a class, such as a12f34, or a procedure, such as a12f34c56");
    RequireKind(target, NodeKind::Application,
                "A class is copied into an application, such as a12");
}

/// All 0 where it is refused.
NodeIDs Copy(Database& db, const NodeIDs& original, const NodeIDs& target,
             const std::string& name) {
    if (KindOf(original) == NodeKind::Class) {
        const std::int32_t classID = CopyClass(db, original.classID, target.appID, name);
        return {target.appID, classID, 0};
    }
    return {target.appID, target.classID, CopyCode(db, original.codeID, target.classID, name)};
}

void Run(CommandContext& context) {
    const NodeIDs original = ReadNodeKey(*context.Given().Value("KEY"));
    const NodeIDs target = ReadNodeKey(*context.Given().Value("TARGET-KEY"));
    RequireKinds(original, target);
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, original);
    RequireNode(db, target);
    const auto name = TextArgument(context, kName);
    if (name) RequireDone(IsOneLine(db, *name));
    const NodeIDs copy = Copy(db, original, target, name ? *name : NameOfNode(db, original));
    RequireDone(KindOf(copy) == KindOf(original));
    ReportNode(context, db, "Copied", copy);
}

}  // namespace

constexpr CliCommand kCopyCommand = {
    .name = "copy",
    .summary = "copy a class into an application, or a procedure into a class",
    .description =
        "Copies a class with its procedures, and with the comments, languages, authors, dates and "
        "keywords of all of them, into an application, or one such procedure into a class, and "
        "prints the copy's key. Bookmarks stay with the original. Where the name is taken already, "
        "nothing is copied.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
