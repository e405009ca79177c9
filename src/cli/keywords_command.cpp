#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>

#include "cli/command_context.h"
#include "cli/field_options.h"
#include "cli/node_argument.h"
#include "cli/node_document.h"
#include "cli/node_list.h"
#include "cli/node_output.h"
#include "cli/one_action.h"
#include "cli/record_storing.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "editors/catalogue_lists.h"
#include "editors/owner_details.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kSet = "--set";
constexpr std::string_view kSeparator = field_option::kSeparator;
constexpr std::string_view kClear = "--clear";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::AtMostOnce, "whose keywords; without it, those of all nodes"},
};
constexpr CommandOption kOptions[] = {
    {kSet,       "TEXT", "put these keywords in the place of those that the node has"},
    {kSeparator, "NAME", "what stands between them: blank, comma, semicolon, slash or vertical bar"},
    {kClear,     "",     "take the node's keywords away"},
};
constexpr CommandExample kExamples[] = {
    {"keywords a2f2", "A class's keywords, and the words by which it is found."},
    {"keywords a2f2 --set 'month, year' --separator comma", "Other keywords for it."},
};
// clang-format on

void ListAll(CommandContext& context) {
    Recordset row = AllOwnersWithKeywords(context.Catalogue(CatalogueUse::Read));
    Json owners = Json::array();
    TextTable table({"key", "name", "keywords"});
    for (; !row.EndOfFile(); row.MoveNext()) {
        const NodeIDs node{row["appID"].Long(), row["classID"].Long(), row["codeID"].Long()};
        owners.push_back({{"key", KeyOf(node)},
                          {"kind", KindName(KindOf(node))},
                          {"name", row["ownerName"].Text()},
                          {"keywords", row["keyword"].Text()}});
        table.AddRow({{KeyOf(node)}, {row["ownerName"].Text()}, {row["keyword"].Text()}});
    }
    if (context.WantsJson()) return context.SetDocument({{"owners", std::move(owners)}});
    table.Print(context.Output());
}

void ListOf(CommandContext& context, Database& db, const NodeIDs& node) {
    const std::optional<OwnerKeywords> keywords = LoadOwnerDetails(db, OwnerOf(node)).keywords;
    if (context.WantsJson()) {
        Json document = NodeDocument(db, node);
        document["keywords"] = KeywordsDocument(keywords);
        return context.SetDocument(document);
    }
    if (!keywords) return;
    context.Output() << "Keywords:     " << OneLine(keywords->entry.text) << '\n'
                     << "Separator:    " << OneLine(keywords->separatorDescription) << '\n'
                     << "Search words: " << OneLine(keywords->searchWords) << '\n';
}

/// The node's keywords as they are to be.
KeywordEntry EntryFor(const CommandContext& context, Database& db, const NodeIDs& node) {
    if (context.Given().Has(kClear)) return {};
    const std::optional<OwnerKeywords> present = LoadOwnerDetails(db, OwnerOf(node)).keywords;
    KeywordEntry entry = present ? present->entry : KeywordEntry{};
    if (const auto text = TextArgument(context, kSet)) {
        entry.text = *text;
    } else if (!present) {
        throw Error(error_number::kInvalidCall,
                    "'" + KeyOf(node) + "' has no keywords yet. Give it some with --set.");
    }
    if (const auto separator = TextArgument(context, kSeparator))
        entry.separatorID = FindSeparator(db, *separator);
    return entry;
}

void Change(const CommandContext& context, Database& db, const NodeIDs& node) {
    StoreDetails(db, node, {.keywords = EntryFor(context, db, node)});
}

void Run(CommandContext& context) {
    const Arguments& given = context.Given();
    OneAction(given, {kSet, kClear});
    OneAction(given, {kSeparator, kClear});
    const bool changes = given.Has(kSet) || given.Has(kSeparator) || given.Has(kClear);
    RunNodeList(context, {ListAll, ListOf, Change}, changes);
}

}  // namespace

constexpr CliCommand kKeywordsCommand = {
    .name = "keywords",
    .summary = "list keywords, give them to nodes and take them away",
    .description =
        "Lists the keywords of all nodes, or those of one application, class or procedure with "
        "the search words in them, and changes them.\n\n"
        "Keywords are kept as they are typed. A search finds their single words, without noise "
        "words, numbers and punctuation. Search words that no keywords have any more go.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
