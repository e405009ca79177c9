#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "store/restore.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"salvage",       "Asks, and then recovers what can be read."},
    {"--yes salvage", "Recovers without asking."},
};
// clang-format on

void PrintTable(std::ostream& output, const SalvagedTable& table) {
    if (table.savedRows == 0 && table.IsComplete()) return;
    output << table.name << ": " << table.savedRows << " rows recovered";
    if (const std::int64_t lost = table.UnreadableCount(); lost > 0)
        output << ", up to " << lost << " lost";
    if (table.hasUncountedLoss) output << ", nobody knows how many lost";
    if (!table.suspect.empty()) output << ", " << table.suspect.size() << " suspect";
    output << '\n';
}

Json DocumentOf(const SalvageResult& result) {
    Json tables = Json::array();
    for (const SalvagedTable& table : result.report.tables) {
        Json unreadable = Json::array();
        for (const RowRange& range : table.unreadable)
            unreadable.push_back({{"first", range.first}, {"last", range.last}});
        tables.push_back({
            {"name", table.name},
            {"savedRows", table.savedRows},
            {"unreadable", std::move(unreadable)},
            {"suspect", table.suspect},
            {"hasUncountedLoss", table.hasUncountedLoss},
        });
    }
    return {{"complete", result.report.IsComplete()},
            {"kept", result.keptPath},
            {"tables", std::move(tables)}};
}

void Run(CommandContext& context) {
    const std::string folder = context.ClosedCatalogue().ProgramFolder();
    context.RequireConsent("Recover what can be read of the catalogue in '" + folder +
                           "' into a new file? The file that is there now is kept.");
    const SalvageResult result = SalvageCatalogue(context.GetHost(), folder);
    if (context.WantsJson()) {
        context.SetDocument(DocumentOf(result));
        return;
    }
    for (const SalvagedTable& table : result.report.tables)
        PrintTable(context.Output(), table);
    context.Output() << (result.report.IsComplete() ? "Everything was recovered.\n"
                                                    : "Not everything could be recovered.\n")
                     << "The file of before was kept: " << result.keptPath << '\n';
}

}  // namespace

constexpr CliCommand kSalvageCommand = {
    .name = "salvage",
    .summary = "recover what can be read of a damaged catalogue",
    .description =
        "Reads a damaged catalogue row by row and puts what can be read into a new file, which "
        "takes the catalogue's place. The damaged file is kept beside it. Where a good backup is "
        "new enough, 'restore' is the better way. Ctrl+C ends the work; nothing has changed then.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
