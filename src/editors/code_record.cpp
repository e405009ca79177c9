#include "editors/code_record.h"

#include "editors/field_rules.h"
#include "editors/overlong.h"
#include "export/comment_header.h"
#include "store/class_markers.h"
#include "store/database.h"
#include "store/name_rules.h"
#include "store/owner.h"
#include "store/reads_languages.h"
#include "store/reads_procedures.h"
#include "store/writes_codes.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

bool MayHaveName(Database& db, const CodeRecord& record, const CodeRecord& before) {
    const std::int32_t classID = ClassOrUndefined(record.classID);
    const bool isHere = record.codeID != 0 && classID == before.classID;
    if (isHere && record.name == before.name) return true;
    if (record.name != before.name && !IsOneLine(db, record.name)) return false;
    return isHere ? MayRenameCode(db, record.codeID, record.name)
                  : MayAddCode(db, record.name, classID);
}

/// The record as it is stored: its comment framed.
CodeRecord Finished(Database& db, CodeRecord record, const CodeRecord& before) {
    if (record.comment == before.comment) return record;
    const std::int32_t language = LanguageIDByClassID(db, ClassOrUndefined(record.classID));
    record.comment = FormatCommentHeader(record.comment, language);
    return record;
}

/// An empty record for a procedure that is not stored yet.
CodeRecord StoredOrEmpty(Database& db, std::int32_t codeID) {
    return LoadCodeRecord(db, codeID).value_or(CodeRecord{});
}

CodeFields FieldsOf(const CodeRecord& record) {
    return {
        .name = record.name,
        .code = record.code,
        .classID = record.classID,
        .comment = record.comment,
    };
}

std::int32_t LanguageOf(Database& db, const CodeRecord& record) {
    return record.languageID != 0 ? record.languageID
                                  : LanguageIDByClassID(db, ClassOrUndefined(record.classID));
}

/// The language comes last: a procedure without one was left before it had its marker, perhaps.
void Add(Database& db, const CodeRecord& record, std::int32_t& codeID) {
    CodeFields row = FieldsOf(record);
    row.comment.clear();  // which has a statement of its own
    codeID = AddCode(db, row);
    if (!record.comment.empty()) SetCodeComment(db, codeID, record.comment);
    AddMarker(db, codeID);
    AddCodeLanguage(db, codeID, LanguageOf(db, record));
}

bool Update(Database& db, const CodeRecord& record, const CodeRecord& before) {
    if (!UpdateCode(db, record.codeID, FieldsOf(record))) return false;
    MoveMarker(db, record.codeID, {before.classID, before.name});
    if (before.languageID == 0) AddMarker(db, record.codeID);
    const std::int32_t language = LanguageOf(db, record);
    if (language != before.languageID) SetCodeLanguage(db, record.codeID, language);
    const Owner owner{OwnerKind::Procedure, record.codeID};
    if (record.code != before.code) ForgetOverlong(db, owner, "code");
    if (record.comment != before.comment) ForgetOverlong(db, owner, "codeComment");
    return true;
}

}  // namespace

std::optional<CodeRecord> LoadCodeRecord(Database& db, std::int32_t codeID) {
    return Guarded(db.Reporter(), Procedure::LoadCodeRecord, [&]() -> std::optional<CodeRecord> {
        const Recordset row = CodeByID(db, codeID);
        if (row.EndOfFile()) return std::nullopt;
        return CodeRecord{
            .codeID = codeID,
            .name = row["codeName"].Text(),
            .classID = row["classID"].Long(),
            .languageID = LanguageIDByCodeID(db, codeID),
            .code = row["code"].Text(),
            .comment = row["codeComment"].Text(),
        };
    });
}

bool CheckCodeRecord(Database& db, const CodeRecord& record) {
    return Guarded(db.Reporter(), Procedure::CheckCodeRecord, [&] {
        const CodeRecord before = StoredOrEmpty(db, record.codeID);
        return MayHaveName(db, record, before) && FitsLongText(db, "code", record.code) &&
               FitsLongText(db, "comment", Finished(db, record, before).comment);
    });
}

bool StoreCodeRecord(Database& db, CodeRecord& record) {
    return Guarded(db.Reporter(), Procedure::SaveCodeRecord, [&] {
        const CodeRecord before = StoredOrEmpty(db, record.codeID);
        const CodeRecord finished = Finished(db, record, before);
        if (record.codeID != 0) return Update(db, finished, before);
        Add(db, finished, record.codeID);
        return true;
    });
}

std::int32_t SaveCodeRecord(Database& db, const CodeRecord& record) {
    CodeRecord stored = record;
    return StoreCodeRecord(db, stored) ? stored.codeID : 0;
}

}  // namespace snippetarium
