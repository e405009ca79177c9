#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>

#include "cli/command_context.h"
#include "cli/field_options.h"
#include "cli/one_action.h"
#include "cli/query_output.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "editors/catalogue_lists.h"
#include "editors/languages.h"
#include "keywords/words.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAdd = "--add";
constexpr std::string_view kRename = "--rename";
constexpr std::string_view kTo = "--to";
constexpr std::string_view kDelete = "--delete";

// clang-format off
constexpr CommandOption kOptions[] = {
    {kAdd,    "NAME", "add a language"},
    {kRename, "NAME", "give a language the name that --to says"},
    {kTo,     "NAME", "the new name"},
    {kDelete, "NAME", "delete a language that no class and no procedure has"},
};
constexpr CommandExample kExamples[] = {
    {"languages",                             "The languages, and how many classes and procedures have each."},
    {"languages --add Fortran",               "One more."},
    {"languages --rename Fortran --to 'Fortran 90'", "Another name, for all that has the language."},
};
// clang-format on

void List(CommandContext& context) {
    Recordset languages = AllLanguages(context.Catalogue(CatalogueUse::Read));
    if (!context.WantsJson()) return PrintRows(context.Output(), std::move(languages));
    context.SetDocument({{"languages", RowsDocument(std::move(languages))}});
}

void Report(CommandContext& context, std::string_view done, const std::string& name) {
    if (context.WantsJson()) {
        context.SetDocument({{"language", name}});
    } else {
        context.Output() << done << ": " << OneLine(name) << '\n';
    }
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kAdd, kRename, kDelete});
    RequireBoth(context.Given(), kRename, kTo);
    if (action.empty()) return List(context);

    const std::string name(TrimBlanks(*TextArgument(context, action)));
    const std::string newName(TrimBlanks(TextArgument(context, kTo).value_or(name)));
    Database& db = context.Catalogue(CatalogueUse::Change);
    if (action == kAdd) {
        RequireDone(AddLanguage(db, name));
        Report(context, "Added", name);
    } else if (action == kRename) {
        RequireDone(RenameLanguage(db, FindLanguage(db, name), newName));
        Report(context, "Renamed", newName);
    } else {
        FindLanguage(db, name);
        RequireDone(RemoveLanguage(db, name));
        Report(context, "Deleted", name);
    }
}

}  // namespace

constexpr CliCommand kLanguagesCommand = {
    .name = "languages",
    .summary = "list the languages, add, rename and delete them",
    .description =
        "Lists the languages, with the number of classes and procedures that have each. One that "
        "is in use can be renamed, but not deleted.\n\n"
        "The program knows the languages that a new catalogue has by their numbers, and goes on to "
        "treat them as what they were if they are renamed.",
    .arguments = {},
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
