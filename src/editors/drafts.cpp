#include "editors/drafts.h"

#include <algorithm>
#include <utility>

#include "editors/application_editor.h"
#include "editors/class_editor.h"
#include "editors/code_editor.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/local_time.h"

namespace snippetarium {

namespace {

constexpr std::string_view kSelect = "SELECT draftID, savedOn, kind, ownerID, name FROM tblDraft ";

/// The names of a draft's own fields that are looked at here.
constexpr std::string_view kNameField = "name";

std::string NameIn(const DraftTexts& texts) {
    const auto name = std::ranges::find(texts, kNameField, &DraftText::field);
    return name == texts.end() ? std::string() : name->text;
}

/// The rows of a draft in the place of those of its ID. Both tables are written in one go, so that
/// a crash leaves the old draft or the new one. A new draft has no ID yet: the table gives it the
/// greatest.
void WriteDraft(Database& db, const RecordEditor& editor, const DraftTexts& texts,
                std::string_view savedOn) {
    const BoundValue draftID =
        editor.DraftID() == 0 ? BoundValue(std::monostate()) : BoundValue(editor.DraftID());
    const std::string name = NameIn(texts);
    std::vector<BoundStatement> statements{
        {"DELETE FROM tblDraft WHERE draftID = ?1", {draftID}},
        {"INSERT INTO tblDraft(draftID, savedOn, kind, ownerID, name) VALUES (?1, ?2, ?3, ?4, ?5)",
         {draftID, savedOn, static_cast<std::int64_t>(editor.Kind()), editor.ID(), name}}};
    for (const DraftText& text : texts) {
        const BoundValue loaded = text.loaded ? BoundValue(*text.loaded) : std::monostate();
        statements.push_back(
            {"INSERT INTO tblDraftText(draftID, field, text, loaded) VALUES "
             "(coalesce(?1, (SELECT max(draftID) FROM tblDraft)), ?2, ?3, ?4)",
             {draftID, text.field, text.text, loaded}});
    }
    db.GetConnection().RunTransaction(statements);
}

std::string IsDraft(std::int32_t draftID) {
    return Sql("WHERE draftID = ", draftID);
}

bool IsOwnerThere(Database& db, const Draft& draft) {
    switch (draft.kind) {
        case OwnerKind::Application:
            return LoadApplicationRecord(db, draft.ownerID).has_value();
        case OwnerKind::Class:
            return LoadClassRecord(db, draft.ownerID).has_value();
        case OwnerKind::Procedure:
            break;
    }
    return LoadCodeRecord(db, draft.ownerID).has_value();
}

Draft DraftIn(Database& db, const Recordset& row) {
    Draft draft{
        .draftID = row["draftID"].Long(),
        .kind = static_cast<OwnerKind>(row["kind"].Long()),
        .ownerID = row["ownerID"].Long(),
        .name = row["name"].Text(),
        .savedOn = row["savedOn"].Text(),
    };
    draft.isOwnerThere = draft.ownerID == 0 || IsOwnerThere(db, draft);
    return draft;
}

DraftTexts TextsOfDraft(Database& db, std::int32_t draftID) {
    DraftTexts texts;
    Recordset row = db.GetConnection().Execute(
        Sql("SELECT field, text, loaded FROM tblDraftText ", IsDraft(draftID)));
    for (; !row.EndOfFile(); row.MoveNext()) {
        texts.push_back({row["field"].Text(), row["text"].Text()});
        if (!row["loaded"].IsNull()) texts.back().loaded = row["loaded"].Text();
    }
    return texts;
}

std::string_view KindIn(const Draft& draft) {
    const bool isNew = draft.ownerID == 0;
    switch (draft.kind) {
        case OwnerKind::Application:
            return isNew ? "New application" : "Application";
        case OwnerKind::Class:
            return isNew ? "New class" : "Class";
        case OwnerKind::Procedure:
            break;
    }
    return isNew ? "New procedure" : "Procedure";
}

/// An editor of the record as it is stored; of a new one, or of one that is gone, with nothing in
/// it but the ID.
std::unique_ptr<RecordEditor> EditorFor(Database& db, const NoiseWords& noise, const Draft& draft) {
    const std::int32_t id = draft.ownerID;
    const bool isStored = id != 0 && draft.isOwnerThere;
    switch (draft.kind) {
        case OwnerKind::Application:
            if (isStored) return OpenApplicationEditor(db, noise, id);
            return std::make_unique<ApplicationEditor>(db, noise, ApplicationRecord{.appID = id});
        case OwnerKind::Class:
            if (isStored) return OpenClassEditor(db, noise, id);
            return std::make_unique<ClassEditor>(db, noise, ClassRecord{.classID = id});
        case OwnerKind::Procedure:
            break;
    }
    if (isStored) return OpenCodeEditor(db, noise, id);
    return std::make_unique<CodeEditor>(db, noise, CodeRecord{.codeID = id});
}

}  // namespace

bool SaveDraft(Database& db, RecordEditor& editor) {
    return Guarded(db.Reporter(), Procedure::SaveDraft, [&] {
        if (db.IsReadOnly()) return true;
        const DraftTexts texts = editor.TextsForDraft();
        if (texts.empty()) {
            DropDraft(db, editor);
            return true;
        }
        const std::string savedOn = LocalTimeText(db.GetHost().clock.Now(), "%Y-%m-%d %H:%M:%S");
        WriteDraft(db, editor, texts, savedOn);
        if (editor.DraftID() == 0) editor.SetDraftID(MaxIDValue(db, "draftID", "tblDraft"));
        return true;
    });
}

void DropDraft(Database& db, RecordEditor& editor) {
    Guarded(db.Reporter(), Procedure::DropDraft, [&] {
        if (editor.DraftID() == 0) return;
        DeleteDraft(db, editor.DraftID());
        editor.SetDraftID(0);
    });
}

std::vector<Draft> DraftsLeft(Database& db, std::span<const std::int32_t> openDraftIDs) {
    return Guarded(db.Reporter(), Procedure::DraftsLeft, [&] {
        std::vector<Draft> drafts;
        if (db.IsReadOnly()) return drafts;
        Recordset row =
            db.GetConnection().Execute(Sql(kSelect, "ORDER BY savedOn DESC, draftID DESC"));
        for (; !row.EndOfFile(); row.MoveNext()) {
            if (std::ranges::find(openDraftIDs, row["draftID"].Long()) == openDraftIDs.end())
                drafts.push_back(DraftIn(db, row));
        }
        return drafts;
    });
}

std::string DraftTitle(const Draft& draft) {
    constexpr std::size_t kUpToMinutes = 16;
    std::string title(KindIn(draft));
    title += draft.name.empty() ? " without a name" : " '" + draft.name + "'";
    if (!draft.isOwnerThere) title += ", deleted since";
    return title + ", edited " + draft.savedOn.substr(0, kUpToMinutes);
}

std::unique_ptr<RecordEditor> OpenDraft(Database& db, const NoiseWords& noise,
                                        std::int32_t draftID) {
    return Guarded(db.Reporter(), Procedure::OpenDraft, [&]() -> std::unique_ptr<RecordEditor> {
        const Recordset row = db.GetConnection().Execute(Sql(kSelect, IsDraft(draftID)));
        if (row.EndOfFile()) return nullptr;
        std::unique_ptr<RecordEditor> editor = EditorFor(db, noise, DraftIn(db, row));
        if (!editor) return nullptr;
        editor->TakeDraft(TextsOfDraft(db, draftID));
        editor->SetDraftID(draftID);
        return editor;
    });
}

void DeleteDraft(Database& db, std::int32_t draftID) {
    Guarded(db.Reporter(), Procedure::DeleteDraft,
            [&] { ExecuteSQL(db, Sql("DELETE FROM tblDraft ", IsDraft(draftID))); });
}

}  // namespace snippetarium
