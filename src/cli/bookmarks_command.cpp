#include "store/bookmarks.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/one_action.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "store/reads_other.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAdd = "--add";
constexpr std::string_view kRemove = "--remove";

// clang-format off
constexpr CommandOption kOptions[] = {
    {kAdd,    "KEY", "bookmark a class or a procedure"},
    {kRemove, "KEY", "take a bookmark away"},
};
constexpr CommandExample kExamples[] = {
    {"bookmarks",              "The bookmarks."},
    {"bookmarks --add a2f2c1", "One more."},
};
// clang-format on

void List(CommandContext& context) {
    Recordset row = Favorite(context.Catalogue(CatalogueUse::Read));
    Json bookmarks = Json::array();
    TextTable table({"key", "application", "class", "procedure"});
    for (; !row.EndOfFile(); row.MoveNext()) {
        const NodeIDs node{row["appID"].Long(), row["classID"].Long(), row["codeID"].Long()};
        Json bookmark = {{"key", KeyOf(node)},
                         {"kind", KindName(KindOf(node))},
                         {"application", row["appName"].Text()},
                         {"class", row["className"].Text()}};
        if (node.codeID != 0) bookmark["procedure"] = row["codeName"].Text();
        bookmarks.push_back(std::move(bookmark));
        table.AddRow({{KeyOf(node)},
                      {row["appName"].Text()},
                      {row["className"].Text()},
                      {row["codeName"].Text()}});
    }
    if (context.WantsJson()) return context.SetDocument({{"bookmarks", std::move(bookmarks)}});
    table.Print(context.Output());
}

void Add(Database& db, const NodeIDs& node) {
    if (AddBookmark(db, KeyOf(node))) return;
    throw Error(error_number::kInvalidCall,
                KindOf(node) == NodeKind::Class
                    ? "The class '" + KeyOf(node) + "' is bookmarked already, or a procedure of it."
                    : "The procedure '" + KeyOf(node) + "' is bookmarked already.");
}

void Remove(Database& db, const NodeIDs& node) {
    if (DeleteBookmark(db, KeyOf(node))) return;
    throw Error(error_number::kInvalidCall, "'" + KeyOf(node) + "' is not bookmarked.");
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kAdd, kRemove});
    if (action.empty()) return List(context);
    const NodeIDs node = ReadNodeKey(*context.Given().Value(action));
    if (KindOf(node) == NodeKind::Application)
        throw UsageError("Classes and procedures are bookmarked, not applications.");
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireNode(db, node);
    if (action == kAdd) {
        Add(db, node);
        ReportNode(context, db, "Bookmarked", node);
    } else {
        Remove(db, node);
        ReportNode(context, db, "No longer bookmarked", node);
    }
}

}  // namespace

constexpr CliCommand kBookmarksCommand = {
    .name = "bookmarks",
    .summary = "list the bookmarks, add and remove them",
    .description =
        "Lists the bookmarked classes and procedures, and changes the list.\n\n"
        "A class of which a procedure is bookmarked counts as bookmarked itself; bookmark the "
        "class first to have both.",
    .arguments = {},
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
