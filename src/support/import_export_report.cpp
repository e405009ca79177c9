#include "support/import_export_report.h"

namespace snippetarium {

void AppendReportLine(std::string& lines, std::string_view text) {
    lines += "  ";
    lines += text;
    lines += "\r\n";
}

std::string ImportReportText(const JobTexts& texts) {
    std::string report =
        "The following error(s) occurred during code import:\r\n\r\n" + texts.errors;
    if (texts.importedFiles.empty()) return report;
    return report + "\r\nThe following files were successfully imported:\r\n\r\n" +
           texts.importedFiles;
}

std::string ExportReportText(const JobTexts& texts) {
    if (texts.exportedFiles.empty()) return texts.errors;
    return texts.errors + "\r\nThe following files were successfully exported:\r\n\r\n" +
           texts.exportedFiles;
}

}  // namespace snippetarium
