#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>
#include <string>

#include "cli/command_context.h"
#include "cli/console.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/usage_error.h"
#include "editors/field_rules.h"
#include "import/import_job.h"
#include "import/import_selection.h"
#include "import/import_start.h"
#include "keywords/noise_words.h"
#include "store/cut_short_imports.h"
#include "store/reads_applications.h"
#include "support/disk_file_system.h"
#include "support/encoding.h"
#include "support/node_key.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kFolder = "FOLDER";
constexpr std::string_view kEntry = "ENTRY";
constexpr std::string_view kSubfolders = "--subfolders";
constexpr std::string_view kApplication = "--application";
constexpr std::string_view kPath = "--path";
constexpr std::string_view kLanguage = "--language";
constexpr std::string_view kExisting = "--existing";
constexpr std::string_view kEveryKind = "--every-kind";
constexpr std::string_view kEncoding = "--encoding";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {kFolder, Occurs::Once,      "the folder of the application"},
    {kEntry,  Occurs::AnyNumber, "files to import, named from that folder; without them, all"},
};
constexpr CommandOption kOptions[] = {
    {kSubfolders,  "",       "import the files of all subfolders too"},
    {kApplication, "NAME",   "the application that the classes go to; an empty name leaves them without one"},
    {kPath,        "PATH",   "what the catalogue notes as the application's path"},
    {kLanguage,    "TEXT",   "the languages of the procedures, with commas between them"},
    {kExisting,    "CHOICE", "what to do where the application is in the catalogue: 'overwrite' its classes of the same name and path, import 'new' ones only, or 'cancel'"},
    {kEveryKind,   "",       "list each file of a kind that can be imported: pages (htm, html) and, in subfolders, cs too"},
    {kEncoding,    "NAME",   "the encoding of files that do not tell theirs; windows-1252 if it is not given"},
};
constexpr CommandExample kExamples[] = {
    {"import ~/src/Paint --subfolders",            "All sources of an application."},
    {"import . Form1.frm sub/Grid.bas",            "Two files."},
    {"--json import . --existing overwrite",       "Once more what has changed, from a script."},
};
// clang-format on

/// What is to be imported, and from where.
struct ImportList {
    std::string folder;
    std::vector<std::string> entries;
    std::vector<std::string> problems;
};

/// An entry as it was named, in the catalogue's form. Export writes files to the paths that the
/// catalogue has for them, so none may lead out of its folder.
std::string NamedEntry(const std::string& name) {
    RequireUtf8(kEntry, name);
    const std::filesystem::path path =
        std::filesystem::path(ToPlatformPath(name)).lexically_normal();
    const std::string first = path.empty() ? std::string() : path.begin()->string();
    if (path.is_absolute() || first.empty() || first == "." || first == "..")
        throw UsageError("'" + name + "' is no file below the folder to import from.");
    return ToCataloguePath(path.string());
}

/// The named entries in their order, each once: a file that is stored twice would be two classes.
std::vector<std::string> NamedEntries(const Arguments& given) {
    std::vector<std::string> entries;
    std::set<std::string> known;
    for (const std::string& name : given.All(kEntry)) {
        std::string entry = NamedEntry(name);
        if (known.insert(entry).second) entries.push_back(std::move(entry));
    }
    return entries;
}

/// The folder's whole path, the same for "sub", "sub/" and "sub/.": the catalogue knows an
/// application by it.
std::string SourceFolder(const Arguments& given, const FileSystem& files) {
    const std::string name = *given.Value(kFolder);
    RequireUtf8(kFolder, name);
    if (!files.FolderExists(name))
        throw Error(error_number::kPathNotFound, "There is no folder '" + name + "'.");
    std::filesystem::path folder =
        std::filesystem::absolute(ToPlatformPath(name)).lexically_normal();
    if (!folder.has_filename()) folder = folder.parent_path();
    return folder.string();
}

ImportList ListFiles(CommandContext& context, Database& db, ImportState& state,
                     const FileSystem& files) {
    const Arguments& given = context.Given();
    ImportList list;
    list.folder = SourceFolder(given, files);
    if (given.Has(kEntry)) {
        list.entries = NamedEntries(given);
        return list;
    }
    ImportSelection selection(db, files, state,
                              given.Has(kEveryKind) ? EveryKindPattern() : kListPattern);
    selection.ChangeFolder(list.folder);
    if (given.Has(kSubfolders) && !selection.SetIncludeSubfolder(true)) {
        throw Error(error_number::kInvalidCall,
                    "Nothing was imported, because the search for files was not finished.");
    }
    list.entries = selection.SourceFiles();
    list.problems = selection.Problems();
    if (list.entries.empty()) {
        throw Error(error_number::kFileNotFound,
                    "The folder '" + list.folder + "' holds no file that can be imported.");
    }
    return list;
}

ImportTexts TextsFor(const CommandContext& context, Database& db, const ImportList& list) {
    ImportTexts texts;
    texts.applicationPath = TextArgument(context, kPath).value_or(list.folder);
    texts.language = TextArgument(context, kLanguage).value_or(LanguageText(list.entries));
    if (const auto application = TextArgument(context, kApplication)) {
        texts.application = *application;
    } else {
        texts.application = ApplicationNameForPath(db, texts.applicationPath);
    }
    RequireDone(IsOneLine(db, texts.language));
    if (AppIDUsingAppName(db, texts.application) == 0)
        RequireDone(IsOneLine(db, texts.application));
    return texts;
}

ImportAnswers AnswersIn(const Arguments& given) {
    ImportAnswers answers{.supplyName = StandardAnswer::No};
    const auto choice = given.Value(kExisting);
    if (!choice) return answers;
    // clang-format off
    constexpr std::pair<std::string_view, StandardAnswer> kChoices[] = {
        {"overwrite", StandardAnswer::Yes},
        {"new",       StandardAnswer::No},
        {"cancel",    StandardAnswer::Cancel},
    };
    // clang-format on
    for (const auto& [word, answer] : kChoices) {
        if (*choice == word) answers.overwrite = answer;
    }
    if (!answers.overwrite)
        throw UsageError("--existing takes 'overwrite', 'new' or 'cancel', not '" + *choice + "'.");
    return answers;
}

std::string EncodingIn(const Arguments& given) {
    const std::string name = given.Value(kEncoding).value_or(std::string(kDefaultEncoding));
    if (!IsKnownEncoding(name)) {
        throw UsageError("The encoding '" + name +
                         "' is not known. Write it like windows-1252, iso-8859-15, shift_jis or "
                         "utf-16le.");
    }
    return name;
}

/// The lines of a job's text (support/import_export_report.h), without their indent. A file's name
/// may hold line breaks, so only the next line's indent ends a line.
Json LinesOf(std::string_view text) {
    constexpr std::string_view kIndent = "  ";
    constexpr std::string_view kBreak = "\r\n";
    constexpr std::string_view kNext = "\r\n  ";
    Json lines = Json::array();
    while (!text.empty()) {
        text.remove_prefix(kIndent.size());
        const std::size_t end = std::min(text.find(kNext), text.size() - kBreak.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + kBreak.size());
    }
    return lines;
}

std::string_view NameOf(ImportEnding ending) {
    switch (ending) {
        case ImportEnding::Failed:
            return "failed";
        case ImportEnding::Cancelled:
            return "cancelled";
        case ImportEnding::Imported:
            return "imported";
        case ImportEnding::WithProblems:
            return "with problems";
        case ImportEnding::NothingFound:
            break;
    }
    return "nothing found";
}

void Print(CommandContext& context, Database& db, const ImportOutcome& outcome,
           std::int32_t appID) {
    if (context.WantsJson()) {
        context.SetDocument({{"application", "a" + std::to_string(appID)},
                             {"name", AppNameByID(db, appID)},
                             {"ending", NameOf(outcome.ending)},
                             {"imported", LinesOf(outcome.texts.importedFiles)},
                             {"problems", LinesOf(outcome.texts.errors)},
                             {"notImported", outcome.failedEntries}});
    } else if (!outcome.texts.errors.empty()) {
        context.Output() << TerminalText(ImportReportText(outcome.texts));
    } else if (!outcome.texts.importedFiles.empty()) {
        context.Output() << "The following files were successfully imported:\n\n"
                         << TerminalText(outcome.texts.importedFiles);
    }
}

void Run(CommandContext& context) {
    const ImportAnswers answers = AnswersIn(context.Given());
    const std::string encoding = EncodingIn(context.Given());
    Database& db = context.Catalogue(CatalogueUse::Change);
    TellOfCutShortImports(db);
    const DiskFileSystem files;
    ImportState state;
    ImportList list = ListFiles(context, db, state, files);
    const ImportTexts texts = TextsFor(context, db, list);
    const ImportStart start = StartImport(db, state, texts, list.entries.size(), answers);
    if (!start.mayStart) {
        const bool lacksLanguage = start.focus == ImportControl::Language;
        throw Error(error_number::kInvalidCall, std::string("Nothing was imported.") +
                                                    (lacksLanguage ? " Add --language." : ""));
    }

    const NoiseWords noise = LoadNoiseWords(db);
    const ImportOutcome outcome =
        ImportJob(db, files, state, noise, ProgramAnalysers())
            .Run({.folder = list.folder,
                  .entries = std::move(list.entries),
                  .target = {.appID = start.appID, .language = texts.language},
                  .encoding = encoding,
                  .problems = std::move(list.problems)});
    Print(context, db, outcome, start.appID);
    ShowImportEnding(context.GetHost().messages, outcome.ending);
    const bool stopped =
        outcome.ending == ImportEnding::Failed || outcome.ending == ImportEnding::Cancelled;
    if (stopped || !outcome.failedEntries.empty())
        context.FailAfterwards("Not everything was imported.");
}

}  // namespace

constexpr CliCommand kImportCommand = {
    .name = "import",
    .summary = "import source files into the catalogue",
    .description =
        "Cuts source files into classes and procedures and stores them under one application, "
        "which is added where it is new. Without ENTRY, all files in the folder are imported whose "
        "kind is known. The application's name is the one that the catalogue has for the folder, "
        "else the folder's own.\n\n"
        "A class is known by its name and its file's path below the folder. What is there already "
        "is left alone unless it is to be overwritten. What could not be imported stands in the "
        "report, and the command fails if it was a whole file or a part of one. Ctrl+C stops; what "
        "is imported by then stays.\n\n"
        "Before the first import of a day into a catalogue that holds something, a backup of it "
        "is made.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
