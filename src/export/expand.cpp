#include "export/expand.h"

#include "store/database.h"
#include "store/reads_procedures.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string Expand(Database& db, Procedure operation, MarkerFamily family,
                   std::string_view classText, std::int32_t classID) {
    return Guarded(db.Reporter(), operation, [&] {
        Remarks unused;  // they are for the report of a whole file
        const WholeTexts whole(db, classID);
        return ExpandMarkers(family, classText, ReadProcedureTexts(db, classID, whole, unused))
            .text;
    });
}

}  // namespace

std::string ExpandVbProcedures(Database& db, std::string_view classText, std::int32_t classID) {
    return Expand(db, Procedure::ExpandVbProcedures, MarkerFamily::VisualBasic, classText, classID);
}

std::string ExpandCProcedures(Database& db, std::string_view classText, std::int32_t classID) {
    return Expand(db, Procedure::ExpandCProcedures, MarkerFamily::C, classText, classID);
}

std::string ExpandPageProcedures(Database& db, std::string_view classText, std::int32_t classID) {
    return Expand(db, Procedure::ExpandPageProcedures, MarkerFamily::Page, classText, classID);
}

ProcedureText ProcedureTextOf(const Recordset& row, const WholeTexts& whole, Remarks& remarks) {
    ProcedureText procedure{.codeName = row["codeName"].Text()};
    const auto read = [&](std::string_view column) {
        const Owner owner{OwnerKind::Procedure, row["codeID"].Long()};
        return whole.Whole({owner, column, procedure.codeName, row[column].TextView()}, remarks);
    };
    if (!row["codeComment"].IsNull()) procedure.comment = read("codeComment");
    procedure.code = read("code");
    return procedure;
}

std::vector<ProcedureText> ReadProcedureTexts(Database& db, std::int32_t classID,
                                              const WholeTexts& whole, Remarks& remarks) {
    std::vector<ProcedureText> procedures;
    for (Recordset row = CodeNameCommentCodeByClassID(db, classID); !row.EndOfFile();
         row.MoveNext()) {
        procedures.push_back(ProcedureTextOf(row, whole, remarks));
    }
    return procedures;
}

}  // namespace snippetarium
