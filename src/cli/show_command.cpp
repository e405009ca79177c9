#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_document.h"
#include "cli/node_page.h"
#include "editors/field_rules.h"
#include "support/error.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::Once, "the application, class or procedure"},
};
constexpr CommandExample kExamples[] = {
    {"show a2f2c1",        "A procedure with its comment and code."},
    {"--json show a2f2c1", "Every field of it, for a script."},
};
// clang-format on

/// Application 1 and class 1 are places, not things.
void RequirePage(Database& db, const NodeIDs& node) {
    if (MayEditNode(db, node)) return;
    throw Error(error_number::kInvalidCall, "'" + KeyOf(node) + "' has no page. '" +
                                                std::string(kProgramName) + " tree " + KeyOf(node) +
                                                "' prints what is in it.");
}

void Run(CommandContext& context) {
    const NodeIDs node = ReadNodeKey(*context.Given().Value("KEY"));
    Database& db = context.Catalogue(CatalogueUse::Read);
    RequireNode(db, node);
    RequirePage(db, node);
    if (context.WantsJson()) {
        context.SetDocument(WholeNodeDocument(db, node));
    } else {
        PrintNodePage(context.Output(), db, node);
    }
}

}  // namespace

constexpr CliCommand kShowCommand = {
    .name = "show",
    .summary = "print an application, a class or a procedure",
    .description =
        "Prints a node's page: what it is and where it belongs, with language, authors, dates, "
        "keywords and the first line of its comment; then its texts. For an application these are "
        "its comment and the list of its classes, for a class its comment, its text (in which a "
        "marker stands for each procedure) and the list of its procedures, for a procedure its "
        "comment and its code.\n\n"
        "Control characters are printed as \"?\". With --json every text comes as it is stored, "
        "with CR LF line ends.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
