#include "import/import_job.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <utility>

#include "engine/engine_error.h"
#include "import/import_window.h"
#include "store/backup.h"
#include "store/database.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/mod_fso.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

/// What an import may lose by a power cut.
constexpr std::chrono::seconds kBetweenCheckpoints{5};
constexpr std::int16_t kExtensionPart = 16;
constexpr ImportWindow::Texts kImportTexts{"Snippetarium is importing code, please wait...",
                                           "File Progress:"};

std::string TimeText(std::chrono::steady_clock::duration elapsed) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
    return "Time: " + std::to_string(seconds / 3600) + " :" + std::to_string(seconds % 3600 / 60) +
           " :" + std::to_string(seconds % 60);
}

/// What one line of a file is worth on a bar that ends at 99.
double LineStep(std::string_view text) {
    const auto breaks = std::ranges::count(text, '\n');
    const auto lines = static_cast<float>(breaks + (text.ends_with('\n') ? 0 : 1));
    return static_cast<double>(99.0F / lines);
}

/// After such a failure every further file would only fail too.
bool ConcernsAllFiles(const Error& error) {
    using enum EngineErrorCode;
    constexpr std::array kCodes{ReadOnly, DiskError, Corrupted, DiskFull, CannotLock, ObjectClosed};
    return std::ranges::any_of(kCodes, [&](EngineErrorCode code) {
        return error.Number() == static_cast<std::int32_t>(code);
    });
}

void ReportOddBytes(ImportState& state, const std::string& entry, const TextFile& file) {
    if (!file.nulLines.Empty()) {
        state.Report(entry + " holds NUL characters, which no text has, in line " +
                     file.nulLines.ToText() + ". They are kept, and an export writes them back.");
    }
    if (!file.undecodableLines.Empty()) {
        state.Report(entry + " holds bytes that are no " + file.form.encoding + " text in line " +
                     file.undecodableLines.ToText() +
                     ". They are kept, and an export writes them back.");
    }
}

}  // namespace

void ShowImportEnding(MessageBoxes& messages, ImportEnding ending) {
    constexpr std::string_view kTitle = "Import Code";
    switch (ending) {
        case ImportEnding::Failed:
        case ImportEnding::Cancelled:
            return ShowInformation(messages, "Code import was not completed.", kTitle);
        case ImportEnding::Imported:
            return ShowInformation(messages, "The code has been successfully imported.", kTitle);
        case ImportEnding::WithProblems:
            return;
        case ImportEnding::NothingFound:
            return ShowInformation(messages, "No code was found in the file(s).", kTitle);
    }
}

/// A job while it runs. It writes in bulk.
struct ImportJob::Running {
    const ImportRequest& request;
    UnitStore store;
    BulkWriting writing;
    std::chrono::steady_clock::time_point lastCheckpoint;
    std::vector<std::string> failedEntries = {};
    bool catalogueFailed = false;
    /// A part of the file at hand may be in the catalogue.
    bool isStoring = false;

    std::string NotImported(const std::string& entry) const {
        return entry + (isStoring ? " was not imported to its end" : " was not imported");
    }
};

ImportJob::ImportJob(Database& db, const FileSystem& files, ImportState& state,
                     const NoiseWords& noise, Analysers analysers)
    : db_(db), files_(files), state_(state), noise_(noise), analysers_(std::move(analysers)) {}

ImportOutcome ImportJob::Run(const ImportRequest& request) {
    // However the job ends, the next one must find none of its texts and flags.
    struct EndOfJob {
        ImportState& state;
        ~EndOfJob() {
            state.importErrorLog.clear();
            state.importedFilesLog.clear();
            state.fileHadError = false;
            state.includeFilesRejected = false;
            state.overwriteChoice = OverwriteChoice::None;
        }
    };
    return Guarded(db_.Reporter(), Procedure::RunImport, [&] {
        const EndOfJob endOfJob{state_};
        state_.importCancelled = false;
        state_.codeFound = false;
        if (RecordExists(db_, "SELECT classID FROM tblClass WHERE classID > 1"))
            BackUpOncePerDay(db_);
        return RunToEnd(request);
    });
}

ImportOutcome ImportJob::RunToEnd(const ImportRequest& request) {
    const Clock& clock = db_.GetHost().clock;
    const auto start = clock.Steady();
    Running running{request, UnitStore(db_, state_, noise_, request.target),
                    BulkWriting(db_.GetConnection()), start};
    for (const std::string& problem : request.problems)
        AppendReportLine(state_.importErrorLog, problem);
    ImportEntries(running);
    // What has failed already has been told. The mode for single edits comes back all the same.
    if (!running.catalogueFailed) {
        running.catalogueFailed = !GuardedStage(db_.Reporter(), Procedure::FinishImport, [&] {
            running.writing.Finish();
            return true;
        });
    }
    return {.ending = Ending(running),
            .time = TimeText(clock.Steady() - start),
            .texts = {.errors = state_.importErrorLog,
                      .importedFiles = state_.importedFilesLog,
                      .exportedFiles = {}},
            .failedEntries = std::move(running.failedEntries)};
}

void ImportJob::ImportEntries(Running& running) {
    Progress& progress = db_.GetHost().progress;
    const ImportWindow window(db_.GetHost(), state_, kImportTexts);
    const std::vector<std::string>& entries = running.request.entries;
    std::vector<std::string>& failed = running.failedEntries;
    const double step = 99.0 / static_cast<double>(entries.size());
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        if (!ImportEntry(running, *entry)) failed.push_back(*entry);
        progress.SetUnit(0);
        progress.SetTotal(progress.Total() + step);
        db_.GetHost().events.Yield();
        if (!running.catalogueFailed) MakeSafe(running);
        if (state_.importCancelled || running.catalogueFailed) {
            failed.insert(failed.end(), std::next(entry), entries.end());
            return;
        }
    }
}

/// False where the entry's file is not in the catalogue, or not all of it.
bool ImportJob::ImportEntry(Running& running, const std::string& entry) {
    const std::string extension = GetFromPath(db_.GetHost().messages, entry, kExtensionPart);
    const CodeFileKind kind = GetCodeFileKind(extension, state_);
    if (kind == CodeFileKind::NotSupported) {
        AppendReportLine(state_.importErrorLog,
                         entry + " was not imported as its extension is not supported.");
        return false;
    }
    db_.GetHost().progress.SetContentLine("Importing " + entry);
    const bool isImported = ImportCodeFile(running, kind, entry);
    if (!std::exchange(state_.fileHadError, false))
        AppendReportLine(state_.importedFilesLog, entry);
    return isImported;
}

bool ImportJob::ImportCodeFile(Running& running, CodeFileKind kind, const std::string& entry) {
    running.isStoring = false;
    return GuardedStage(db_.Reporter(), Procedure::ImportCodeFile, [&] {
        try {
            return AnalyseAndStore(running, kind, entry);
        } catch (const Error& error) {
            state_.Report(running.NotImported(entry) + ": " + error.Description());
            running.catalogueFailed = ConcernsAllFiles(error);
            return false;
        } catch (...) {
            state_.Report(running.NotImported(entry) + ".");
            throw;
        }
    });
}

bool ImportJob::AnalyseAndStore(Running& running, CodeFileKind kind, const std::string& entry) {
    const TextFile file = DecodeTextFile(files_.ReadFile(JoinPath(running.request.folder, entry)),
                                         running.request.encoding);
    if (file.text.empty()) return true;
    ReportOddBytes(state_, entry, file);
    LineProgress lines(db_.GetHost(), state_, LineStep(file.text));
    const std::optional<CutFile> cut =
        analysers_.at(kind)({.text = file.text, .entry = entry, .kind = kind}, lines, state_);
    if (!cut) return false;
    for (const std::string& problem : cut->problems)
        state_.Report(entry + ": " + problem);
    if (state_.importCancelled) {
        state_.Report(entry + " was not imported, because the import was cancelled.");
        return false;
    }
    running.isStoring = true;
    const StoreResult result = running.store.Store(*cut, {.entry = entry, .form = file.form});
    return result == StoreResult::Stored || result == StoreResult::LeftAlone;
}

/// Every few seconds.
void ImportJob::MakeSafe(Running& running) {
    const auto now = db_.GetHost().clock.Steady();
    if (now - running.lastCheckpoint < kBetweenCheckpoints) return;
    running.lastCheckpoint = now;
    const bool isSafe = GuardedStage(db_.Reporter(), Procedure::FinishImport, [&] {
        db_.GetConnection().Checkpoint();
        return true;
    });
    if (!isSafe) running.catalogueFailed = true;
}

ImportEnding ImportJob::Ending(const Running& running) const {
    if (running.catalogueFailed) return ImportEnding::Failed;
    if (state_.importCancelled) return ImportEnding::Cancelled;
    if (!state_.importErrorLog.empty()) return ImportEnding::WithProblems;
    return state_.codeFound ? ImportEnding::Imported : ImportEnding::NothingFound;
}

}  // namespace snippetarium
