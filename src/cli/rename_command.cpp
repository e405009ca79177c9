#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "editors/renaming.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY",  Occurs::Once, "the application, class or procedure"},
    {"NAME", Occurs::Once, "its new name, of at most 255 characters"},
};
constexpr CommandExample kExamples[] = {
    {"rename a2f2c1 IsLeap", "Another name for a procedure."},
};
// clang-format on

void Run(CommandContext& context) {
    const NodeIDs node = ReadNodeKey(*context.Given().Value("KEY"));
    const std::string name = *TextArgument(context, "NAME");
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, node);
    RequireDone(RenameNode(db, node, name));
    ReportNode(context, db, "Renamed", node);
}

}  // namespace

constexpr CliCommand kRenameCommand = {
    .name = "rename",
    .summary = "give an application, a class or a procedure another name",
    .description =
        "Gives an application, a class or a procedure another name. The marker of a procedure in "
        "its class's text gets it too; its code is left as it is.\n\n"
        "A name must be new in its place: that of an application in the catalogue, that of a class "
        "in its application, that of a procedure in its class. Letter case does not count, so a "
        "name can be written anew in other letters.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
