#include "export/export_result.h"

#include "support/import_export_report.h"

namespace snippetarium {

std::string ExportReport(const ExportResult& result) {
    JobTexts texts;
    for (const std::string& problem : result.problems)
        AppendReportLine(texts.errors, problem);
    for (const std::string& file : result.exported)
        AppendReportLine(texts.exportedFiles, file);
    return ExportReportText(texts);
}

}  // namespace snippetarium
