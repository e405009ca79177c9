#include "support/import_export_report.h"

#include <gtest/gtest.h>

namespace snippetarium {
namespace {

TEST(ImportExportReport, ListsTheErrorsAndThenTheFilesOfItsJob) {
    const std::string head = "The following error(s) occurred during code import:\r\n\r\n";
    const std::string imported = "\r\nThe following files were successfully imported:\r\n\r\n";
    const std::string exported = "\r\nThe following files were successfully exported:\r\n\r\n";
    const struct {
        JobTexts texts;
        std::string importReport;
        std::string exportReport;
    } cases[] = {
        {{"", "", ""}, head, ""},
        {{"  e\r\n", "", ""}, head + "  e\r\n", "  e\r\n"},
        {{"  e\r\n", "  a\r\n  b\r\n", ""},
         head + "  e\r\n" + imported + "  a\r\n  b\r\n",
         "  e\r\n"},
        {{"  e\r\n", "", "  x\r\n"}, head + "  e\r\n", "  e\r\n" + exported + "  x\r\n"},
        {{"", "  a\r\n", "  x\r\n"}, head + imported + "  a\r\n", exported + "  x\r\n"},
    };
    for (const auto& [texts, importReport, exportReport] : cases) {
        EXPECT_EQ(ImportReportText(texts), importReport);
        EXPECT_EQ(ExportReportText(texts), exportReport);
    }
}

}  // namespace
}  // namespace snippetarium
