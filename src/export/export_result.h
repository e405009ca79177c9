#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace snippetarium {

/// What to do with a file that is there already.
enum class ExistingFile : std::int8_t { Ask, Append, Overwrite, Skip };

enum class ExportOutcome : std::int8_t {
    /// Something went wrong, and it has been reported, before anything was written.
    Failed,
    /// The user was told what is missing in the request.
    Refused,
    /// The user stopped it. What was written before stays.
    Cancelled,
    /// It went to its end. Not every file need have been written: see the problems.
    Finished,
};

struct ExportResult {
    ExportOutcome outcome = ExportOutcome::Failed;
    /// The files written: of an application by their stored paths, else by the path asked for.
    std::vector<std::string> exported = {};
    /// Sentences: what was not written and why, and what the user should know of what was.
    std::vector<std::string> problems = {};
    /// How many of the problems kept a class from being written. A file that was skipped because
    /// the user said so is none.
    std::size_t failures = 0;
    /// The names of an application's classes that have no path, so that nothing was written.
    std::vector<std::string> classesWithoutPath = {};
};

/// The text of the report window (support/import_export_report.h), which is to be shown when there
/// are problems.
std::string ExportReport(const ExportResult& result);

}  // namespace snippetarium
