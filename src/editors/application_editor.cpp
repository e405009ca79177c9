#include "editors/application_editor.h"

#include "editors/loss_questions.h"
#include "editors/record_editor_impl.h"
#include "support/guard.h"

namespace snippetarium {

template <>
struct RecordKind<ApplicationRecord> {
    static constexpr OwnerKind kKind = OwnerKind::Application;
    // clang-format off
    static constexpr RecordField<ApplicationRecord> kFields[] = {
        {"name", &ApplicationRecord::name},
        {"path", &ApplicationRecord::path},
        {"version", &ApplicationRecord::version},
        {"comment", &ApplicationRecord::comment},
    };
    // clang-format on

    static constexpr auto kID = &ApplicationRecord::appID;
    static constexpr auto kLoad = &LoadApplicationRecord;
    static constexpr auto kCheck = &CheckApplicationRecord;
    static constexpr auto kStore = &StoreApplicationRecord;

    static NodeIDs Place(Database&, const ApplicationRecord& record) {
        return {.appID = record.appID};
    }
    static bool ConfirmLosses(Database& db, ApplicationRecord& record,
                              const ApplicationRecord& stored) {
        return record.comment == stored.comment ||
               MayForgetOverlong(db, {kKind, stored.appID}, "appComment", "comment");
    }
};

template class RecordEditorOf<ApplicationRecord>;

std::unique_ptr<ApplicationEditor> NewApplicationEditor(Database& db, const NoiseWords& noise) {
    return std::make_unique<ApplicationEditor>(db, noise, ApplicationRecord{});
}

std::unique_ptr<ApplicationEditor> OpenApplicationEditor(Database& db, const NoiseWords& noise,
                                                         std::int32_t appID) {
    return Guarded(db.Reporter(), Procedure::OpenEditor,
                   [&] { return OpenRecordEditor<ApplicationRecord>(db, noise, appID); });
}

}  // namespace snippetarium
