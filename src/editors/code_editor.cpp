#include "editors/code_editor.h"

#include "editors/loss_questions.h"
#include "editors/record_editor_impl.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "support/guard.h"

namespace snippetarium {

template <>
struct RecordKind<CodeRecord> {
    static constexpr OwnerKind kKind = OwnerKind::Procedure;
    // clang-format off
    static constexpr RecordField<CodeRecord> kFields[] = {
        {"name", &CodeRecord::name},
        {"classID", &CodeRecord::classID},
        {"languageID", &CodeRecord::languageID},
        {"code", &CodeRecord::code},
        {"comment", &CodeRecord::comment},
    };
    // clang-format on

    static constexpr auto kID = &CodeRecord::codeID;
    static constexpr auto kLoad = &LoadCodeRecord;
    static constexpr auto kCheck = &CheckCodeRecord;
    static constexpr auto kStore = &StoreCodeRecord;

    static NodeIDs Place(Database& db, const CodeRecord& record) {
        return {AppIDByClassID(db, record.classID), record.classID, record.codeID};
    }
    static bool ConfirmLosses(Database& db, CodeRecord& record, const CodeRecord& stored) {
        const Owner owner{kKind, stored.codeID};
        return (record.code == stored.code || MayForgetOverlong(db, owner, "code", "code")) &&
               (record.comment == stored.comment ||
                MayForgetOverlong(db, owner, "codeComment", "comment")) &&
               FitOrCut(db, record.code);
    }
};

template class RecordEditorOf<CodeRecord>;

std::unique_ptr<CodeEditor> NewCodeEditor(Database& db, const NoiseWords& noise,
                                          std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::OpenEditor, [&] {
        const std::int32_t place = ClassOrUndefined(classID);
        return std::make_unique<CodeEditor>(
            db, noise, CodeRecord{.classID = place, .languageID = LanguageIDByClassID(db, place)});
    });
}

std::unique_ptr<CodeEditor> OpenCodeEditor(Database& db, const NoiseWords& noise,
                                           std::int32_t codeID) {
    return Guarded(db.Reporter(), Procedure::OpenEditor,
                   [&] { return OpenRecordEditor<CodeRecord>(db, noise, codeID); });
}

}  // namespace snippetarium
