#include "store/class_text.h"

#include <algorithm>

#include "store/owner.h"
#include "store/reads_classes.h"
#include "store/reads_source_files.h"
#include "store/sql_text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// What brings the row of tblOverlong in line.
std::vector<std::string> RestStatements(const ClassText& stored, std::string_view rest) {
    const std::string ofClass =
        Sql(" WHERE ownerID = ", stored.classID, " AND ownerTableID = ", OwnerKind::Class,
            " AND part = 'classDI'");
    const std::string remove = Sql("DELETE FROM tblOverlong", ofClass);
    if (rest.empty()) return stored.hasRest ? std::vector{remove} : std::vector<std::string>{};
    if (stored.hasRest) return {Sql("UPDATE tblOverlong SET text = ", SqlText(rest), ofClass)};
    // There may be the rest of a text that was edited since, which belongs to nothing any more.
    return {remove, Sql("INSERT INTO tblOverlong VALUES(", stored.classID, ", ", OwnerKind::Class,
                        ", 'classDI', ", SqlText(rest), ")")};
}

}  // namespace

ClassText ReadClassText(Database& db, std::int32_t classID) {
    ClassText whole{.classID = classID, .text = ClassDIByClassID(db, classID)};
    if (CharacterCount(whole.text) != kLongTextLimit) return whole;
    for (Recordset row = OverlongTextsOfClass(db, classID); !row.EndOfFile(); row.MoveNext()) {
        if (row["ownerTableID"].Long() != static_cast<std::int32_t>(OwnerKind::Class)) continue;
        if (row["part"].TextView() != "classDI") continue;
        whole.text += row["text"].TextView();
        whole.hasRest = true;
    }
    return whole;
}

std::vector<std::string> ClassTextStatements(const ClassText& stored, std::string_view text) {
    if (text == stored.text) return {};
    const std::string_view column = CutToCharacters(text, kLongTextLimit);
    std::vector<std::string> statements = RestStatements(stored, text.substr(column.size()));
    const bool isLonger = text.size() > stored.text.size();
    statements.insert(isLonger ? statements.end() : statements.begin(),
                      Sql("UPDATE tblClass SET classDI = ", SqlText(column),
                          " WHERE classID = ", stored.classID));
    return statements;
}

}  // namespace snippetarium
