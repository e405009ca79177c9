#include "editors/class_editor.h"

#include "editors/loss_questions.h"
#include "editors/record_editor_impl.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

template <>
struct RecordKind<ClassRecord> {
    static constexpr OwnerKind kKind = OwnerKind::Class;
    // clang-format off
    static constexpr RecordField<ClassRecord> kFields[] = {
        {"name", &ClassRecord::name},
        {"appID", &ClassRecord::appID},
        {"languageID", &ClassRecord::languageID},
        {"path", &ClassRecord::pathInApp},
        {"declarations", &ClassRecord::declarations},
        {"comment", &ClassRecord::comment},
    };
    // clang-format on

    static constexpr auto kID = &ClassRecord::classID;
    static constexpr auto kLoad = &LoadClassRecord;
    static constexpr auto kCheck = &CheckClassRecord;
    static constexpr auto kStore = &StoreClassRecord;

    static NodeIDs Place(Database&, const ClassRecord& record) {
        return {.appID = record.appID, .classID = record.classID};
    }
    static bool ConfirmLosses(Database& db, ClassRecord& record, const ClassRecord& stored) {
        const Owner owner{kKind, stored.classID};
        return (record.declarations == stored.declarations ||
                MayForgetOverlong(db, owner, "classDI", "text")) &&
               (record.comment == stored.comment ||
                MayForgetOverlong(db, owner, "classComment", "comment")) &&
               KeepMarkers(db, record, stored);
    }
};

template class RecordEditorOf<ClassRecord>;

namespace {

constexpr std::int32_t kFirstLanguageID = 1;

/// Most classes of an application are in one language.
std::int32_t LanguageOfNewestClass(Database& db, std::int32_t appID) {
    const Recordset row = db.GetConnection().Execute(
        Sql("SELECT languageID FROM tblClass WHERE classID = (SELECT max(classID) FROM tblClass "
            "WHERE appID = ",
            ApplicationOrUndefined(appID), ")"));
    const std::int32_t language = row.EndOfFile() ? 0 : row["languageID"].Long();
    return language != 0 ? language : kFirstLanguageID;
}

}  // namespace

std::unique_ptr<ClassEditor> NewClassEditor(Database& db, const NoiseWords& noise,
                                            std::int32_t appID) {
    return Guarded(db.Reporter(), Procedure::OpenEditor, [&] {
        return std::make_unique<ClassEditor>(
            db, noise,
            ClassRecord{.appID = ApplicationOrUndefined(appID),
                        .languageID = LanguageOfNewestClass(db, appID)});
    });
}

std::unique_ptr<ClassEditor> OpenClassEditor(Database& db, const NoiseWords& noise,
                                             std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::OpenEditor,
                   [&] { return OpenRecordEditor<ClassRecord>(db, noise, classID); });
}

}  // namespace snippetarium
