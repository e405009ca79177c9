#include "editors/class_record.h"

#include <utility>

#include "editors/field_rules.h"
#include "editors/marker_style.h"
#include "editors/overlong.h"
#include "export/comment_header.h"
#include "store/class_markers.h"
#include "store/database.h"
#include "store/name_rules.h"
#include "store/owner.h"
#include "store/reads_classes.h"
#include "store/writes_classes.h"
#include "support/guard.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

bool MayHaveName(Database& db, const ClassRecord& record, const ClassRecord& before) {
    const std::int32_t appID = ApplicationOrUndefined(record.appID);
    const bool isHere = record.classID != 0 && appID == before.appID;
    if (isHere && record.name == before.name) return true;
    if (record.name != before.name && !IsOneLine(db, record.name)) return false;
    return isHere ? MayRenameClass(db, record.classID, record.name)
                  : MayAddClass(db, record.name, appID);
}

bool ChangesMarkers(const ClassRecord& record, const ClassRecord& before) {
    return record.classID != 0 &&
           MarkerFamilyOf(record.languageID) != MarkerFamilyOf(before.languageID);
}

/// The markers in what an import cut off the text are out of an editor's reach. In another style
/// they would be lost to export.
bool MayChangeMarkers(Database& db, const ClassRecord& record, const ClassRecord& before) {
    if (!ChangesMarkers(record, before) || record.declarations != before.declarations) return true;
    return OverlongRest(db, {OwnerKind::Class, record.classID}, "classDI").empty() ||
           RefuseEntry(db,
                       "The text of this class was imported with more than 64,000 characters, so "
                       "it cannot get a language with other procedure markers.");
}

/// The record as it is stored: its comment framed, its markers in the style of its language.
ClassRecord Finished(Database& db, ClassRecord record, const ClassRecord& before) {
    if (record.comment != before.comment)
        record.comment = FormatCommentHeader(record.comment, record.languageID);
    if (ChangesMarkers(record, before)) {
        record.declarations = WithMarkersOf(MarkerFamilyOf(record.languageID), record.declarations,
                                            MarkedProceduresOf(db, record.classID));
    }
    return record;
}

/// An empty record for a class that is not stored yet.
ClassRecord StoredOrEmpty(Database& db, std::int32_t classID) {
    return LoadClassRecord(db, classID).value_or(ClassRecord{});
}

void ForgetWhatWasCut(Database& db, const ClassRecord& record, const ClassRecord& before) {
    const Owner owner{OwnerKind::Class, record.classID};
    if (record.declarations != before.declarations) ForgetOverlong(db, owner, "classDI");
    if (record.comment != before.comment) ForgetOverlong(db, owner, "classComment");
}

}  // namespace

std::optional<ClassRecord> LoadClassRecord(Database& db, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::LoadClassRecord, [&]() -> std::optional<ClassRecord> {
        const Recordset row = ClassDICommentLanIDByID(db, classID);
        if (row.EndOfFile()) return std::nullopt;
        return ClassRecord{
            .classID = classID,
            .name = row["className"].Text(),
            .appID = row["appID"].Long(),
            .languageID = row["languageID"].Long(),
            .pathInApp = row["classPath"].Text(),
            .declarations = row["classDI"].Text(),
            .comment = row["classComment"].Text(),
        };
    });
}

bool CheckClassRecord(Database& db, const ClassRecord& record) {
    return Guarded(db.Reporter(), Procedure::CheckClassRecord, [&] {
        if (record.classID != 0 && !MayEditNode(db, {.classID = record.classID})) return false;
        const ClassRecord before = StoredOrEmpty(db, record.classID);
        if (!MayHaveName(db, record, before) || !MayChangeMarkers(db, record, before)) return false;
        const ClassRecord finished = Finished(db, record, before);
        return FitsLongText(db, "text", finished.declarations) &&
               FitsLongText(db, "comment", finished.comment);
    });
}

bool StoreClassRecord(Database& db, ClassRecord& record) {
    return Guarded(db.Reporter(), Procedure::SaveClassRecord, [&] {
        const ClassRecord before = StoredOrEmpty(db, record.classID);
        const ClassRecord finished = Finished(db, record, before);
        ClassFields fields{
            .name = finished.name,
            .appID = finished.appID,
            .pathInApp = ToCataloguePath(finished.pathInApp),
            .declarations = finished.declarations,
            .comment = finished.comment,
            .languageID = finished.languageID,
        };
        if (record.classID == 0) {
            const std::string comment = std::exchange(fields.comment, {});
            record.classID = AddClass(db, fields);
            if (comment.empty()) return true;
            fields.comment = comment;  // which has a statement of its own
        }
        if (!UpdateClass(db, record.classID, fields)) return false;
        ForgetWhatWasCut(db, record, before);
        return true;
    });
}

std::int32_t SaveClassRecord(Database& db, const ClassRecord& record) {
    ClassRecord stored = record;
    return StoreClassRecord(db, stored) ? stored.classID : 0;
}

std::vector<std::string> ProceduresWithoutMarker(Database& db, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::ProceduresWithoutMarker, [&] {
        std::vector<std::string> names;
        if (classID == kUndefinedClassID) return names;
        const MarkedProcedures procedures = MarkedProceduresOf(db, classID);
        std::vector<bool> isMarked(procedures.codeNames.size());
        const std::string text = ClassDIByClassID(db, classID) +
                                 OverlongRest(db, {OwnerKind::Class, classID}, "classDI");
        for (const MarkerPlace& place : FindMarkers(text, procedures))
            isMarked[place.procedure] = true;
        for (std::size_t i = 0; i < isMarked.size(); ++i) {
            if (!isMarked[i]) names.push_back(procedures.codeNames[i]);
        }
        return names;
    });
}

}  // namespace snippetarium
