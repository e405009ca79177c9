#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/node_list.h"
#include "cli/node_output.h"
#include "cli/one_action.h"
#include "cli/record_storing.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "editors/catalogue_lists.h"
#include "editors/owner_details.h"
#include "support/date_text.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAdd = "--add";
constexpr std::string_view kRemove = "--remove";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::AtMostOnce, "whose dates; without it, all dates of the catalogue"},
};
constexpr CommandOption kOptions[] = {
    {kAdd,    "DATE", "give the node one more date"},
    {kRemove, "DATE", "take a date away from the node"},
};
constexpr CommandExample kExamples[] = {
    {"dates",                         "Every date, with how often it is named."},
    {"dates a2f3 --add 2003-02-18",   "One more date for a class."},
    {"dates a2 --remove 'Nov 7, 1999'", "One date less for an application."},
};
// clang-format on

void ListAll(CommandContext& context) {
    Recordset row = AllDates(context.Catalogue(CatalogueUse::Read));
    Json dates = Json::array();
    TextTable table({"date", "used"});
    for (; !row.EndOfFile(); row.MoveNext()) {
        dates.push_back({{"dateID", row["dateID"].Long()},
                         {"date", row["dDate"].Text()},
                         {"count", row["ownerCount"].Long()}});
        table.AddRow({{row["dDate"].Text()}, {row["ownerCount"].Text(), TextTable::Align::Right}});
    }
    if (context.WantsJson()) return context.SetDocument({{"dates", std::move(dates)}});
    table.Print(context.Output());
}

void ListOf(CommandContext& context, Database& db, const NodeIDs& node) {
    const std::vector<std::string> dates = LoadOwnerDetails(db, OwnerOf(node)).dates;
    if (context.WantsJson()) {
        Json document = NodeDocument(db, node);
        document["dates"] = dates;
        return context.SetDocument(document);
    }
    for (const std::string& date : dates)
        context.Output() << OneLine(date) << '\n';
}

void TakeAway(std::vector<std::string>& dates, const std::string& text, const NodeIDs& node) {
    const auto wanted = ParseDateText(text);
    const auto found = std::ranges::find_if(dates, [&wanted](const std::string& date) {
        return wanted && ParseDateText(date) == wanted;
    });
    if (found == dates.end()) {
        throw Error(error_number::kInvalidCall, "'" + text + "' is no date of '" + KeyOf(node) +
                                                    "'. '" + std::string(kProgramName) + " dates " +
                                                    KeyOf(node) + "' lists its dates.");
    }
    dates.erase(found);
}

void Change(const CommandContext& context, Database& db, const NodeIDs& node) {
    std::vector<std::string> dates = LoadOwnerDetails(db, OwnerOf(node)).dates;
    if (const auto added = TextArgument(context, kAdd)) dates.push_back(*added);
    if (const auto removed = TextArgument(context, kRemove)) TakeAway(dates, *removed, node);
    StoreDetails(db, node, {.dates = std::move(dates)});
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kAdd, kRemove});
    RunNodeList(context, {ListAll, ListOf, Change}, !action.empty());
}

}  // namespace

constexpr CliCommand kDatesCommand = {
    .name = "dates",
    .summary = "list dates, give them to nodes and take them away",
    .description =
        "Lists all dates with how often each is named, or those of one application, class or "
        "procedure, and changes them.\n\n"
        "A date is written as people write it: 2001-03-14, 3/14/2001, 14.03.2001, 14-Mar-2001 or "
        "March 14, 2001. It is printed in the first of these forms.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
