#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "import/analysers.h"
#include "import/file_kind.h"
#include "import/import_state.h"
#include "import/unit_store.h"
#include "keywords/noise_words.h"
#include "support/file_system.h"
#include "support/host.h"
#include "support/import_export_report.h"
#include "support/text_file.h"

namespace snippetarium {

class Database;

struct ImportRequest {
    /// Where the list entries lie.
    std::string folder = {};
    std::vector<std::string> entries = {};
    StoreTarget target = {};
    /// For files that do not tell their encoding (support/text_file.h).
    std::string encoding = std::string(kDefaultEncoding);
    /// What could not be listed, for the report.
    std::vector<std::string> problems = {};
};

enum class ImportEnding : std::uint8_t {
    /// The catalogue failed, which was reported, or the day's backup could not be made.
    Failed,
    Cancelled,
    Imported,
    /// There were problems; the report is to be shown.
    WithProblems,
    NothingFound,
};

struct ImportOutcome {
    ImportEnding ending = ImportEnding::Failed;
    /// "Time: 0 :2 :5".
    std::string time = {};
    /// What the report is made of (ImportReportText).
    JobTexts texts = {};
    /// The entries of which nothing, or not all, is in the catalogue now, those too that the job
    /// stopped before. One that was left alone, because its class is to be kept, is none of them.
    std::vector<std::string> failedEntries = {};
};

/// The message that closes a job; none where the caller shows the report instead.
void ShowImportEnding(MessageBoxes& messages, ImportEnding ending);

/// Imports files, one after the other, behind the progress window. A file that cannot be imported
/// does not end it; a problem goes into the report. What is imported stays, however it ends.
class ImportJob {
  public:
    /// The references must outlive this. The state's overwriteChoice holds for the next job.
    ImportJob(Database& db, const FileSystem& files, ImportState& state, const NoiseWords& noise,
              Analysers analysers);

    /// Makes the day's backup first, where the catalogue holds a class.
    ImportOutcome Run(const ImportRequest& request);

  private:
    struct Running;

    ImportOutcome RunToEnd(const ImportRequest& request);
    void ImportEntries(Running& running);
    bool ImportEntry(Running& running, const std::string& entry);
    bool ImportCodeFile(Running& running, CodeFileKind kind, const std::string& entry);
    bool AnalyseAndStore(Running& running, CodeFileKind kind, const std::string& entry);
    void MakeSafe(Running& running);
    ImportEnding Ending(const Running& running) const;

    Database& db_;
    const FileSystem& files_;
    ImportState& state_;
    const NoiseWords& noise_;
    Analysers analysers_;
};

}  // namespace snippetarium
