#include "store/class_markers.h"

#include <algorithm>

#include "store/class_text.h"
#include "store/database.h"
#include "store/owner.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// A class's text, and by what its markers are told apart.
struct MarkedClass {
    ClassText stored;
    MarkedProcedures procedures;

    const std::string& Text() const { return stored.text; }
    auto Bearing(std::string_view codeName) const {
        return std::ranges::count(procedures.codeNames, codeName);
    }
};

MarkedClass ReadClass(Database& db, std::int32_t classID) {
    return {ReadClassText(db, classID), MarkedProceduresOf(db, classID)};
}

void WriteText(Database& db, const MarkedClass& marked, std::string_view text) {
    for (const std::string& statement : ClassTextStatements(marked.stored, text))
        ExecuteSQL(db, statement);
}

/// Takes the markers of a procedure that is gone from the class, or is about to go.
void TakeOut(Database& db, const MarkedClass& marked, std::string_view codeName) {
    WriteText(db, marked, RemoveMarker(marked.Text(), marked.procedures, codeName));
}

}  // namespace

MarkedProcedures MarkedProceduresOf(Database& db, std::int32_t classID) {
    MarkedProcedures procedures{MarkerFamilyOf(LanguageIDByClassID(db, classID)), {}};
    for (Recordset row = CodeIDCodeNameByClassID(db, classID); !row.EndOfFile(); row.MoveNext())
        procedures.codeNames.push_back(row["codeName"].Text());
    return procedures;
}

void AddMarker(Database& db, std::int32_t codeID) {
    Guarded(db.Reporter(), Procedure::AddMarker, [&] {
        const Recordset code = MiniCodeRSByCodeID(db, codeID);
        if (code.EndOfFile() || code["classID"].Long() == kUndefinedClassID) return;
        const MarkedClass marked = ReadClass(db, code["classID"].Long());
        WriteText(db, marked,
                  AppendMarker(marked.Text(), marked.procedures, code["codeName"].TextView()));
    });
}

void RenameMarker(Database& db, std::int32_t classID, std::string_view oldName,
                  std::string_view newName) {
    Guarded(db.Reporter(), Procedure::RenameMarker, [&] {
        const std::string_view before = CutToCharacters(oldName, kNameLimit);
        const std::string_view now = CutToCharacters(newName, kNameLimit);
        const MarkedClass marked = ReadClass(db, classID);
        if (before == now || !HasMarker(marked.Text(), marked.procedures, before)) return;
        const bool isShared = marked.Bearing(before) > 0;
        WriteText(db, marked,
                  isShared ? AppendMarker(marked.Text(), marked.procedures, now)
                           : RenameMarker(marked.Text(), marked.procedures, before, now));
    });
}

void TakeMarkerOut(Database& db, std::int32_t codeID) {
    Guarded(db.Reporter(), Procedure::TakeMarkerOut, [&] {
        const Recordset code = MiniCodeRSByCodeID(db, codeID);
        if (code.EndOfFile()) return;
        const MarkedClass marked = ReadClass(db, code["classID"].Long());
        const std::string codeName = code["codeName"].Text();
        if (marked.Bearing(codeName) == 1) TakeOut(db, marked, codeName);
    });
}

void MoveMarker(Database& db, std::int32_t codeID, const FormerPlace& before) {
    Guarded(db.Reporter(), Procedure::MoveMarker, [&] {
        const Recordset code = MiniCodeRSByCodeID(db, codeID);
        if (code.EndOfFile()) return;
        if (code["classID"].Long() == before.classID) {
            RenameMarker(db, before.classID, before.codeName, code["codeName"].TextView());
            return;
        }
        // In this order a failure between the two leaves a marker too many, which export takes for
        // a comment, and not one too few, with which it would leave the procedure out.
        AddMarker(db, codeID);
        const MarkedClass marked = ReadClass(db, before.classID);
        const std::string_view codeName = CutToCharacters(before.codeName, kNameLimit);
        if (marked.Bearing(codeName) == 0) TakeOut(db, marked, codeName);
    });
}

}  // namespace snippetarium
