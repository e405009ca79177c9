#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

// The report that is shown after an import or an export. A job writes it as it goes; a problem goes
// into the report instead of stopping the job.

/// The three texts that a job leaves behind. Each is empty or made of lines; AppendReportLine adds
/// one.
struct JobTexts {
    std::string errors;
    std::string importedFiles;
    std::string exportedFiles;
};

/// Appends one line: two spaces, the text, CR LF.
void AppendReportLine(std::string& lines, std::string_view text);

/// The report of what an import took in and what went wrong.
std::string ImportReportText(const JobTexts& texts);
/// The same of an export.
std::string ExportReportText(const JobTexts& texts);

// What stands above the report.
inline constexpr std::string_view kImportReportLabel = "Import report:";
inline constexpr std::string_view kExportReportLabel = "Export report:";

// Saving the report, an export's too. The filter lists pairs of a description and a pattern.
inline constexpr std::string_view kSaveReportTitle = "Import Report";
inline constexpr std::string_view kSaveReportFilter =
    "All Files (*.*)|*.*|Text Files (*.txt)|*.txt";
inline constexpr std::string_view kReportSaved = "Import report has been successfully saved.";

}  // namespace snippetarium
