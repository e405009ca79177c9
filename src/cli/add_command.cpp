#include <string>

#include "cli/command_context.h"
#include "cli/field_options.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/record_storing.h"
#include "cli/text_argument.h"
#include "cli/usage_error.h"
#include "store/owner.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KIND", Occurs::Once, "application, class or procedure"},
    {"NAME", Occurs::Once, "the new one's name"},
};
constexpr CommandExample kExamples[] = {
    {"add application 'Tide Tables' --app-version 1.4",
     "An application, which classes can be added to."},
    {"add class Ring --application a2 --language Java --text-from -",
     "A class whose text is typed, or comes through a pipe."},
    {"add procedure IsLeapYear --class a2f2 --code-from leap.bas",
     "A procedure with its code, from a file."},
};
// clang-format on

NodeKind ReadKind(const std::string& word) {
    for (const NodeKind kind : {NodeKind::Application, NodeKind::Class, NodeKind::Procedure}) {
        if (KindName(kind) == word) return kind;
    }
    throw UsageError("What is added is an application, a class or a procedure, not '" + word +
                     "'.");
}

void RequireOption(const CommandContext& context, std::string_view option, std::string_view why) {
    if (context.Given().Has(option)) return;
    throw UsageError(std::string(why) + ": " + std::string(option) + " is missing.");
}

NodeIDs Add(const CommandContext& context, Database& db, NodeKind kind, std::string name) {
    const DetailChanges details = TakeDetails(context, db, {});
    if (kind == NodeKind::Application) {
        ApplicationRecord record{.name = std::move(name)};
        TakeFields(context, record);
        return StoreRecord(db, record, details);
    }
    if (kind == NodeKind::Class) {
        ClassRecord record{.name = std::move(name), .appID = kUndefinedApplicationID};
        TakeFields(context, db, record);
        return StoreRecord(db, record, details);
    }
    CodeRecord record{.name = std::move(name), .classID = kUndefinedClassID};
    TakeFields(context, db, record);
    return StoreRecord(db, record, details);
}

void Run(CommandContext& context) {
    const NodeKind kind = ReadKind(*context.Given().Value("KIND"));
    const std::string name = *TextArgument(context, "NAME");
    RequireFittingOptions(context, kind);
    if (kind == NodeKind::Class) {
        RequireOption(context, field_option::kLanguage,
                      "A class has a language, on which its markers and comments depend");
    }
    if (kind == NodeKind::Procedure)
        RequireOption(context, field_option::kCodeFrom, "A procedure has code");
    Database& db = context.Catalogue(CatalogueUse::Change);
    ReportNode(context, db, "Added", Add(context, db, kind, name));
}

}  // namespace

constexpr CliCommand kAddCommand = {
    .name = "add",
    .summary = "add an application, a class or a procedure",
    .description =
        "Adds one application, class (module, form or page) or procedure, and prints its key. A "
        "class without --application goes to \"Application Undefined\", a procedure without "
        "--class to \"Class/Module Undefined\". A procedure has its class's language unless "
        "--language says another; in its class's text it gets a marker at the end.\n\n"
        "A comment is put into a frame, in the comment style of the class's language. A text of "
        "more than 64,000 characters is refused, and so is a name that is taken.",
    .arguments = kArguments,
    .options = kFieldOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
