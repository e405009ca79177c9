#include "store/class_markers.h"

#include <algorithm>

#include "store/database.h"
#include "store/owner.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "store/reads_procedures.h"
#include "store/reads_source_files.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// What the column of a class's text takes, in characters. An import keeps what is behind it in
/// tblOverlong, and export puts it back as long as the text has this very length.
constexpr std::size_t kTextLimit = 64'000;

/// A class's text, and by what its markers are told apart.
struct MarkedClass {
    std::int32_t classID = 0;
    /// With the rest that its column does not take.
    std::string text = {};
    bool hasRest = false;
    MarkedProcedures procedures = {};

    auto Bearing(std::string_view codeName) const {
        return std::ranges::count(procedures.codeNames, codeName);
    }
};

MarkedClass ReadClass(Database& db, std::int32_t classID) {
    MarkedClass marked{classID, ClassDIByClassID(db, classID), false,
                       MarkedProceduresOf(db, classID)};
    if (CharacterCount(marked.text) != kTextLimit) return marked;
    for (Recordset row = OverlongTextsOfClass(db, classID); !row.EndOfFile(); row.MoveNext()) {
        if (row["ownerTableID"].Long() != static_cast<std::int32_t>(OwnerKind::Class)) continue;
        if (row["part"].TextView() != "classDI") continue;
        marked.text += row["text"].TextView();
        marked.hasRest = true;
    }
    return marked;
}

void WriteText(Database& db, const MarkedClass& marked, const std::string& text) {
    if (text == marked.text) return;
    const std::string_view stored =
        marked.hasRest ? CutToCharacters(text, kTextLimit) : std::string_view(text);
    const std::string column =
        Sql("UPDATE tblClass SET classDI = ", SqlText(stored), " WHERE classID = ", marked.classID);
    if (!marked.hasRest) {
        ExecuteSQL(db, column);
        return;
    }
    const std::string_view rest = std::string_view(text).substr(stored.size());
    const std::string ofClass =
        Sql(" WHERE ownerID = ", marked.classID, " AND ownerTableID = ", OwnerKind::Class,
            " AND part = 'classDI'");
    const std::string side = rest.empty()
                                 ? Sql("DELETE FROM tblOverlong", ofClass)
                                 : Sql("UPDATE tblOverlong SET text = ", SqlText(rest), ofClass);
    // Where the program ends between the two, characters stand in both and not in neither.
    const bool isLonger = text.size() > marked.text.size();
    ExecuteSQL(db, isLonger ? side : column);
    ExecuteSQL(db, isLonger ? column : side);
}

/// Takes the markers of a procedure that is gone from the class, or is about to go.
void TakeOut(Database& db, const MarkedClass& marked, std::string_view codeName) {
    WriteText(db, marked, RemoveMarker(marked.text, marked.procedures, codeName));
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
                  AppendMarker(marked.text, marked.procedures, code["codeName"].TextView()));
    });
}

void RenameMarker(Database& db, std::int32_t classID, std::string_view oldName,
                  std::string_view newName) {
    Guarded(db.Reporter(), Procedure::RenameMarker, [&] {
        const std::string_view before = CutToCharacters(oldName, kNameLimit);
        const std::string_view now = CutToCharacters(newName, kNameLimit);
        const MarkedClass marked = ReadClass(db, classID);
        if (before == now || !HasMarker(marked.text, marked.procedures, before)) return;
        const bool isShared = marked.Bearing(before) > 0;
        WriteText(db, marked,
                  isShared ? AppendMarker(marked.text, marked.procedures, now)
                           : RenameMarker(marked.text, marked.procedures, before, now));
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
