#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/import_export_report.h"

namespace snippetarium {

/// What becomes of a class that is in the catalogue already.
enum class OverwriteChoice : std::int8_t {
    /// No question was asked, because the application is new or none was named. Such a class is
    /// left alone, as after No.
    None,
    Yes,
    No,
};

/// What the parts of an import share. It lives as long as the program: the state of one job is
/// cleared at that job's end, as each member says.
struct ImportState {
    /// Set by the progress window's Cancel button, after its question; polled after every file,
    /// folder and listed file. Cleared when a folder walk ends and when a job starts.
    bool importCancelled = false;
    /// One line a problem (AppendReportLine). Emptied when a job ends.
    std::string importErrorLog = {};
    /// One line for each file imported without a problem. Emptied when a job ends.
    std::string importedFilesLog = {};
    /// An analyser had a problem with the file at hand. Read and cleared after each file.
    bool fileHadError = false;
    /// At least one class or procedure was stored. Cleared when a job starts.
    bool codeFound = false;
    /// An "INC" file turned out to hold no page, so the job takes no more of them. Cleared when a
    /// job ends, before its closing message.
    bool includeFilesRejected = false;
    /// The answer for the job at hand.
    OverwriteChoice overwriteChoice = OverwriteChoice::None;

    /// A problem of the file at hand.
    void Report(std::string_view problem) {
        AppendReportLine(importErrorLog, problem);
        fileHadError = true;
    }
};

}  // namespace snippetarium
