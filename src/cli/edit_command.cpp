#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "cli/field_options.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/record_storing.h"
#include "cli/refused_error.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "editors/field_rules.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::Once, "the application, class or procedure"},
};
constexpr CommandExample kExamples[] = {
    {"edit a2 --app-version 1.5",                 "Another version; all else stays."},
    {"edit a2f2c1 --code-from IsLeapYear.bas",    "New code for a procedure."},
    {"edit a2f2c1 --class a2f3",                  "Moves a procedure to another class."},
    {"edit a2f2 --dates '2001-03-14; 2003-02-18'", "Other dates in the place of those it has."},
};
// clang-format on

NodeIDs Edit(const CommandContext& context, Database& db, const NodeIDs& node) {
    const DetailChanges details = TakeDetails(context, db, LoadOwnerDetails(db, OwnerOf(node)));
    switch (KindOf(node)) {
        case NodeKind::Application: {
            ApplicationRecord record = LoadApplicationRecord(db, node.appID).value();
            TakeFields(context, record);
            return StoreRecord(db, record, details);
        }
        case NodeKind::Class: {
            ClassRecord record = LoadClassRecord(db, node.classID).value();
            TakeFields(context, db, record);
            return StoreRecord(db, record, details);
        }
        default: {
            CodeRecord record = LoadCodeRecord(db, node.codeID).value();
            TakeFields(context, db, record);
            return StoreRecord(db, record, details);
        }
    }
}

/// A text edited by hand may have lost a marker, and the procedure is then lost to export.
void WarnOfMissingMarkers(const CommandContext& context, Database& db, std::int32_t classID) {
    std::string names;
    for (const std::string& name : ProceduresWithoutMarker(db, classID))
        names += (names.empty() ? "" : ", ") + OneLine(name);
    if (names.empty()) return;
    PrintMessage(context.GetStreams(),
                 "The class's text has no marker of these procedures, so an export leaves them "
                 "out: " +
                     names);
}

void Run(CommandContext& context) {
    const NodeIDs node = ReadNodeKey(*context.Given().Value("KEY"));
    if (!HasFieldOptions(context))
        throw UsageError("There is nothing to change: no option says what.");
    RequireFittingOptions(context, KindOf(node));
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, node);
    RequireDone(MayEditNode(db, node));
    const NodeIDs edited = Edit(context, db, node);
    if (context.Given().Has(field_option::kTextFrom))
        WarnOfMissingMarkers(context, db, edited.classID);
    ReportNode(context, db, "Changed", edited);
}

}  // namespace

constexpr CliCommand kEditCommand = {
    .name = "edit",
    .summary = "change fields of an application, a class or a procedure",
    .description =
        "Changes the fields that are given and leaves all others as they are. An empty value "
        "empties a field: --comment '' takes the comment away, --authors '' the authors.\n\n"
        "With --application a class moves to another application, with --class a procedure to "
        "another class; the key changes with it. What a class's text says of its procedures "
        "follows: markers move with a procedure, and are written anew where another language "
        "wants them in another style. For the name there is 'rename'.\n\n"
        "A comment that changes is put into a frame, in the comment style of the class's language. "
        "A text of more than 64,000 characters is refused.",
    .arguments = kArguments,
    .options = kFieldOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
