#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "store/text_index.h"

namespace snippetarium {

namespace {

constexpr std::string_view kRebuild = "--rebuild";
constexpr std::string_view kDrop = "--drop";

// clang-format off
constexpr CommandOption kOptions[] = {
    {kRebuild, "", "make the index anew"},
    {kDrop,    "", "throw the index away; none is made until --rebuild"},
};
constexpr CommandExample kExamples[] = {
    {"text-index",           "How much is indexed, and what waits for it."},
    {"text-index --rebuild", "Makes the index anew, or again after --drop."},
};
// clang-format on

std::string NameOf(std::int32_t table) {
    for (const IndexedTable& row : IndexedTexts()) {
        if (row.number == table) return std::string(row.name);
    }
    return {};
}

void Change(CommandContext& context, bool isRebuild) {
    Database& db = context.Catalogue(CatalogueUse::Change);
    if (!isRebuild) {
        DropTextIndex(db);
    } else if (!RebuildTextIndex(db)) {
        throw Error(error_number::kInvalidCall,
                    "The index was not made to its end. What is missing is added by and by.");
    }
}

void Print(CommandContext& context, const std::vector<TextIndexState>& states) {
    if (states.empty()) {
        context.Output() << "There is no index of texts.\n";
        return;
    }
    TextTable table({"table", "rows", "waiting", "segments", "bytes"});
    for (const TextIndexState& state : states) {
        const auto number = [](std::int64_t value) {
            return TextTable::Cell{std::to_string(value), TextTable::Align::Right};
        };
        table.AddRow({{NameOf(state.table)},
                      number(state.rows),
                      number(state.waitingRows),
                      number(state.segments),
                      number(state.bytes)});
    }
    table.Print(context.Output());
}

void Run(CommandContext& context) {
    const bool isRebuild = context.Given().Has(kRebuild);
    const bool isDrop = context.Given().Has(kDrop);
    if (isRebuild && isDrop) throw UsageError("--rebuild and --drop exclude each other.");
    if (isRebuild || isDrop) Change(context, isRebuild);
    const std::vector<TextIndexState> states =
        ReadTextIndexState(context.Catalogue(CatalogueUse::Read));
    if (!context.WantsJson()) return Print(context, states);
    Json tables = Json::array();
    for (const TextIndexState& state : states) {
        tables.push_back({{"table", NameOf(state.table)},
                          {"rows", state.rows},
                          {"waiting", state.waitingRows},
                          {"segments", state.segments},
                          {"bytes", state.bytes}});
    }
    context.SetDocument({{"tables", std::move(tables)}});
}

}  // namespace

constexpr CliCommand kTextIndexCommand = {
    .name = "text-index",
    .summary = "show, rebuild or drop the index that makes searches in texts fast",
    .description =
        "Searches in code, class texts, comments and names are fast by an index of texts, which "
        "looks after itself: rows that are new or changed wait for it a little and are read as "
        "they are meanwhile. Without it every search finds the same, only slower. The command "
        "prints how many rows of each table are in the index and how many wait, and how large it "
        "is.\n\n"
        "After --drop the file has no index; compact then gives its space back. A check tells "
        "whether the index is in order. Ctrl+C ends a rebuilding; what is missing then is added by "
        "and by.",
    .arguments = {},
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
