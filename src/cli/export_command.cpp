#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/console.h"
#include "cli/node_argument.h"
#include "cli/usage_error.h"
#include "export/export_job.h"
#include "support/disk_file_system.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

struct ExistingWord {
    std::string_view word;
    ExistingFile existing;
};

// clang-format off
constexpr std::array kExistingWords{
    ExistingWord{"append",    ExistingFile::Append},
    ExistingWord{"overwrite", ExistingFile::Overwrite},
    ExistingWord{"skip",      ExistingFile::Skip},
};
constexpr CommandArgument kArguments[] = {
    {"KEY",         Occurs::Once, "an application, a class or a procedure"},
    {"DESTINATION", Occurs::Once, "for an application the folder to write into, else the file, with its extension"},
};
constexpr CommandOption kOptions[] = {
    {"--existing", "WHAT", "what to do with files that exist, in place of asking: append, overwrite or skip"},
};
constexpr CommandExample kExamples[] = {
    {"export a12 ~/paint",                      "Every class of application 12, in a folder of its own."},
    {"export a12 ~/paint --existing overwrite", "The same, over what is there."},
    {"export a12f34 Grid.cls",                  "A class with its procedures."},
    {"export a12f34c56 Draw.bas",               "One procedure."},
};
// clang-format on

ExistingFile ReadExisting(const Arguments& given) {
    const auto word = given.Value("--existing");
    if (!word) return ExistingFile::Ask;
    const auto* const found = std::ranges::find(kExistingWords, *word, &ExistingWord::word);
    if (found != kExistingWords.end()) return found->existing;
    throw UsageError("'--existing' takes append, overwrite or skip, not '" + *word + "'.");
}

ExportResult Export(Database& db, const NodeIDs& node, const std::string& destination,
                    ExistingFile existing) {
    DiskFileSystem files;
    if (KindOf(node) == NodeKind::Application) {
        return ExportApplication(db, files, {node.appID, destination, existing});
    }
    FileExport request{.destinationFolder = std::string(ParentFolder(destination)),
                       .fileName = std::string(FileName(destination)),
                       .existing = existing};
    if (KindOf(node) == NodeKind::Class) {
        request.id = node.classID;
        return ExportClass(db, files, request);
    }
    request.id = node.codeID;
    return ExportProcedure(db, files, request);
}

std::string_view Word(ExportOutcome outcome) {
    switch (outcome) {
        case ExportOutcome::Refused:
            return "refused";
        case ExportOutcome::Cancelled:
            return "cancelled";
        case ExportOutcome::Finished:
            return "finished";
        case ExportOutcome::Failed:
            break;
    }
    return "failed";
}

void PrintReport(CommandContext& context, const ExportResult& result) {
    if (context.WantsJson()) {
        context.SetDocument({{"outcome", Word(result.outcome)},
                             {"exported", result.exported},
                             {"problems", result.problems},
                             {"classesWithoutPath", result.classesWithoutPath}});
        return;
    }
    const std::string report = TerminalText(ExportReport(result));
    context.Output() << report.substr(report.starts_with('\n') ? 1 : 0);
}

void Run(CommandContext& context) {
    const ExistingFile existing = ReadExisting(context.Given());
    const NodeIDs node = ReadNodeKey(*context.Given().Value("KEY"));
    Database& db = context.Catalogue(CatalogueUse::Read);
    RequireNode(db, node);
    const ExportResult result = Export(db, node, *context.Given().Value("DESTINATION"), existing);
    PrintReport(context, result);
    if (result.outcome != ExportOutcome::Finished) {
        context.FailAfterwards("The export was not completed.");
    } else if (result.failures > 0) {
        context.FailAfterwards("Not all classes were exported.");
    }
}

}  // namespace

constexpr CliCommand kExportCommand = {
    .name = "export",
    .summary = "write an application, a class or a procedure as source files",
    .description =
        "Writes what the catalogue holds as source files, each procedure back in its place, in the "
        "encoding and with the line ends that the files had when they were imported. Folders are "
        "made as needed.\n\n"
        "Of an application, every class that has a path is written under that path, below the "
        "folder and never outside it. Before a file is replaced you are asked, unless --existing "
        "says what to do; with --yes, the files of an application are overwritten and a single "
        "file is appended to. Where the destination is the place that the application was imported "
        "from, you are asked once more, whatever --existing says.\n\n"
        "The report names the files written and everything else that you should know of.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
