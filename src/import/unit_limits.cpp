#include "import/unit_limits.h"

#include <string>

#include "store/database.h"
#include "store/sql_text.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kIsTooLong = " is too long (over 64,000 characters) in the ";

}  // namespace

std::string_view WithinUnitLimit(std::string_view text) {
    return CutToCharacters(text, kLongTextLimit);
}

void KeepRest(Database& db, const Owner& owner, std::string_view column, std::string_view text) {
    const std::string_view rest = text.substr(WithinUnitLimit(text).size());
    if (rest.empty()) return;
    ExecuteSQL(db, Sql("INSERT INTO tblOverlong VALUES(", owner.id, ", ", owner.kind, ", ",
                       SqlText(column), ", ", SqlText(rest), ")"));
}

void ReportLongProcedure(ImportState& state, std::string_view unit, std::string_view codeName,
                         std::string_view className) {
    state.Report(std::string(unit) + std::string(codeName) + std::string(kIsTooLong) + "class " +
                 std::string(className) + ".");
}

void ReportLongClass(ImportState& state, std::string_view unit, std::string_view className,
                     std::string_view appName) {
    const std::string begin = "  " + std::string(unit) + std::string(className);
    if (FoldCase(state.importErrorLog).find(FoldCase(begin)) != std::string::npos) return;
    state.Report(std::string(unit) + std::string(className) + std::string(kIsTooLong) +
                 "application " + std::string(appName) + ".");
}

}  // namespace snippetarium
