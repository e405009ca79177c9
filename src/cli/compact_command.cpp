#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "engine/engine_error.h"
#include "store/compact.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"compact", "Gives back what deleted procedures have left empty."},
};
// clang-format on

void Run(CommandContext& context) {
    Database& db = context.Catalogue(CatalogueUse::Change);
    const std::string file = db.FilePath();
    const std::uintmax_t before = std::filesystem::file_size(file);
    if (!RunCompaction(db)) {
        // A failure has shown its own message; without one, another program has the file.
        const bool hasReason = context.GetHost().reporter.FirstReported().has_value();
        throw EngineError(EngineErrorCode::OpenElsewhere,
                          hasReason ? "The catalogue was not compacted."
                                    : "The catalogue was not compacted, because another program "
                                      "has it open.");
    }
    context.CloseCatalogue();
    const std::uintmax_t after = std::filesystem::file_size(file);
    if (context.WantsJson()) {
        context.SetDocument({{"file", file}, {"sizeBefore", before}, {"sizeAfter", after}});
    } else {
        context.Output() << file << ": " << before << " bytes before, " << after << " after\n";
    }
}

}  // namespace

constexpr CliCommand kCompactCommand = {
    .name = "compact",
    .summary = "write the catalogue's file anew, without gaps",
    .description =
        "Writes a copy of the catalogue without gaps and puts it in the file's place. At no moment "
        "is there no whole catalogue. No other program may have the catalogue open.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
