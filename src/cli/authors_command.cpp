#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_document.h"
#include "cli/node_list.h"
#include "cli/node_output.h"
#include "cli/one_action.h"
#include "cli/query_output.h"
#include "cli/record_storing.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "editors/author_naming.h"
#include "editors/author_text.h"
#include "editors/catalogue_lists.h"
#include "editors/owner_details.h"
#include "store/reads_authors_dates.h"
#include "support/case_fold.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAdd = "--add";
constexpr std::string_view kRemove = "--remove";
constexpr std::string_view kRename = "--rename";
constexpr std::string_view kTo = "--to";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::AtMostOnce, "whose authors; without it, all authors of the catalogue"},
};
constexpr CommandOption kOptions[] = {
    {kAdd,    "NAME",   "give the node one more author"},
    {kRemove, "NAME",   "take an author away from the node"},
    {kRename, "NUMBER", "write an author's name, wherever it stands, as --to says"},
    {kTo,     "NAME",   "the new name"},
};
constexpr CommandExample kExamples[] = {
    {"authors",                              "Every author, with a number."},
    {"authors a2f3 --add 'Marta J. Lindqvist'", "One more author for a class."},
    {"authors --rename 2 --to 'Thomas Okafor'", "Another name for author 2."},
};
// clang-format on

Json AuthorDocument(const Recordset& row) {
    return {{"authorID", row["authorID"].Long()},
            {"first", row["authorFName"].Text()},
            {"middle", row["authorMName"].Text()},
            {"last", row["authorLName"].Text()},
            {"count", row["ownerCount"].Long()}};
}

std::string NameIn(const Recordset& row) {
    return AuthorText(
        {row["authorFName"].Text(), row["authorMName"].Text(), row["authorLName"].Text()});
}

void ListAll(CommandContext& context) {
    Recordset row = AllAuthors(context.Catalogue(CatalogueUse::Read));
    Json authors = Json::array();
    TextTable table({"number", "author", "used"});
    for (; !row.EndOfFile(); row.MoveNext()) {
        authors.push_back(AuthorDocument(row));
        table.AddRow({{row["authorID"].Text(), TextTable::Align::Right},
                      {NameIn(row)},
                      {row["ownerCount"].Text(), TextTable::Align::Right}});
    }
    if (context.WantsJson()) return context.SetDocument({{"authors", std::move(authors)}});
    table.Print(context.Output());
}

void ListOf(CommandContext& context, Database& db, const NodeIDs& node) {
    const std::vector<LinkedAuthor> authors = LoadOwnerDetails(db, OwnerOf(node)).authors;
    if (context.WantsJson()) {
        Json document = NodeDocument(db, node);
        document["authors"] = AuthorsDocument(authors);
        return context.SetDocument(document);
    }
    for (const LinkedAuthor& author : authors)
        context.Output() << OneLine(AuthorText(author.name)) << '\n';
}

std::vector<AuthorName> NamesOf(Database& db, const NodeIDs& node) {
    std::vector<AuthorName> names;
    for (const LinkedAuthor& author : LoadOwnerDetails(db, OwnerOf(node)).authors)
        names.push_back(author.name);
    return names;
}

void TakeAway(std::vector<AuthorName>& names, const std::string& text, const NodeIDs& node) {
    const std::string wanted = AuthorText(ParseAuthorText(text));
    const auto found = std::ranges::find_if(
        names, [&wanted](const AuthorName& name) { return EqualFolded(AuthorText(name), wanted); });
    if (found == names.end()) {
        throw Error(error_number::kInvalidCall, "'" + text + "' is no author of '" + KeyOf(node) +
                                                    "'. '" + std::string(kProgramName) +
                                                    " authors " + KeyOf(node) +
                                                    "' lists its authors.");
    }
    names.erase(found);
}

void Change(const CommandContext& context, Database& db, const NodeIDs& node) {
    std::vector<AuthorName> names = NamesOf(db, node);
    if (const auto added = TextArgument(context, kAdd)) names.push_back(ParseAuthorText(*added));
    if (const auto removed = TextArgument(context, kRemove)) TakeAway(names, *removed, node);
    StoreDetails(db, node, {.authors = std::move(names)});
}

void Rename(CommandContext& context) {
    const auto authorID = context.Given().Number(kRename, 1, INT32_MAX);
    const AuthorName name = ParseAuthorText(*TextArgument(context, kTo));
    Database& db = context.Catalogue(CatalogueUse::Change);
    if (AuthorRSByID(db, *authorID).EndOfFile()) {
        throw Error(error_number::kInvalidCall,
                    "There is no author with the number " + std::to_string(*authorID) + ". '" +
                        std::string(kProgramName) + " authors' lists the numbers.");
    }
    RequireDone(CheckDetailChanges(db, {.authors = std::vector{name}}));
    const std::int32_t nowID = RenameAuthor(db, *authorID, name);
    if (context.WantsJson()) {
        context.SetDocument({{"authorID", nowID},
                             {"first", name.first},
                             {"middle", name.middle},
                             {"last", name.last}});
    } else {
        context.Output() << "Renamed: " << OneLine(AuthorText(name)) << '\n';
    }
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kAdd, kRemove, kRename});
    RequireBoth(context.Given(), kRename, kTo);
    if (action != kRename) return RunNodeList(context, {ListAll, ListOf, Change}, !action.empty());
    if (context.Given().Has("KEY"))
        throw UsageError("--rename changes an author everywhere and takes no KEY.");
    Rename(context);
}

}  // namespace

constexpr CliCommand kAuthorsCommand = {
    .name = "authors",
    .summary = "list authors, give them to nodes and take them away",
    .description =
        "Lists all authors with how often each is named, or those of one application, class or "
        "procedure, and changes them.\n\n"
        "A name is written \"First Middle Last\" or \"Last, First Middle\". All who name the same "
        "person share one author, so a name is mended once with --rename; with the name of another "
        "author the two become one.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
