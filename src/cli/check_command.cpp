#include "store/check.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/text_layout.h"
#include "cli/text_table.h"
#include "engine/engine_error.h"
#include "store/text_index.h"

namespace snippetarium {

namespace {

constexpr std::string_view kMend = "--mend";

// clang-format off
constexpr CommandOption kOptions[] = {
    {kMend, "", "mend what can be mended without losing anything, after a backup"},
};
constexpr CommandExample kExamples[] = {
    {"check",        "Tells whether the catalogue is sound."},
    {"check --mend", "Mends what was found, and checks again."},
};
// clang-format on

std::string_view NameOf(FindingWeight weight) {
    return weight == FindingWeight::Fault ? "fault" : "information";
}

void PrintFinding(std::ostream& output, const CheckFinding& finding) {
    output << NameOf(finding.weight) << ": " << finding.what << ": " << finding.count;
    for (std::size_t i = 0; i < finding.examples.size(); ++i)
        output << (i == 0 ? " (" : ", ") << OneLine(finding.examples[i]);
    if (!finding.examples.empty()) {
        const bool areAll = finding.count == static_cast<std::int64_t>(finding.examples.size());
        output << (areAll ? ")" : ", ...)");
    }
    output << '\n' << WrapParagraphs(finding.advice, 4);
}

Json DocumentOf(const std::string& file, const CheckReport& report) {
    Json findings = Json::array();
    for (const CheckFinding& finding : report.findings) {
        findings.push_back({
            {"weight", NameOf(finding.weight)},
            {"what", finding.what},
            {"count", finding.count},
            {"examples", finding.examples},
            {"advice", finding.advice},
            {"canBeMended", !finding.mendingScript.empty()},
        });
    }
    return {{"file", file}, {"sound", report.IsSound()}, {"findings", std::move(findings)}};
}

/// Mends if there is anything to mend and says what is then still wrong.
CheckReport Mend(CommandContext& context, CheckReport report) {
    const bool canMend =
        std::any_of(report.findings.begin(), report.findings.end(),
                    [](const CheckFinding& finding) { return !finding.mendingScript.empty(); });
    if (!canMend) return report;
    context.CloseCatalogue();
    Database& db = context.Catalogue(CatalogueUse::Change);
    MendCatalogue(db, report);
    CompleteTextIndex(db);  // mended, it is empty
    context.CloseCatalogue();
    return CheckCatalogue(context.ClosedCatalogue());
}

/// A damaged catalogue cannot be opened and is to be checked all the same. But of a file that is no
/// catalogue, or a newer program's, a check can say nothing.
Database& OpenIfPossible(CommandContext& context) {
    try {
        return context.Catalogue(CatalogueUse::Read);
    } catch (const EngineError& error) {
        if (error.Code() != EngineErrorCode::Corrupted) throw;
    }
    return context.ClosedCatalogue();
}

void Run(CommandContext& context) {
    Database& db = OpenIfPossible(context);
    const std::string file = db.FilePath();
    CheckReport report = CheckCatalogue(db);
    if (report.isComplete && context.Given().Has(kMend)) report = Mend(context, std::move(report));
    if (!report.isComplete) {
        throw Error(error_number::kInvalidCall, "The check was not finished, so nothing is known.");
    }
    if (context.WantsJson()) {
        context.SetDocument(DocumentOf(file, report));
    } else {
        for (const CheckFinding& finding : report.findings)
            PrintFinding(context.Output(), finding);
        if (report.IsSound()) context.Output() << file << ": sound\n";
    }
    if (!report.IsSound()) context.FailAfterwards("The catalogue '" + file + "' has faults.");
}

}  // namespace

constexpr CliCommand kCheckCommand = {
    .name = "check",
    .summary = "check the catalogue's file and what it holds",
    .description =
        "Checks the catalogue through and through: the build of its file, its tables and stored "
        "queries, and its rows against each other. Each finding comes with advice. The command "
        "prints what it found and fails if there is a fault. Ctrl+C ends a check.",
    .arguments = {},
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
