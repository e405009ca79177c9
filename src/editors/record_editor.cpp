#include "editors/record_editor.h"

#include <iterator>
#include <utility>

#include "keywords/keyword_saving.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

struct KindTexts {
    OwnerKind kind;
    std::string_view word;
    std::string_view newCaption;
    std::string_view editCaption;
};

// clang-format off
constexpr KindTexts kKinds[] = {
    {OwnerKind::Application, "application", "New Application", "Edit Application"},
    {OwnerKind::Class, "class", "New Class", "Edit Class"},
    {OwnerKind::Procedure, "procedure", "New Procedure", "Edit Procedure"},
};
// clang-format on

const KindTexts& TextsOf(OwnerKind kind) {
    for (const KindTexts& texts : kKinds) {
        if (texts.kind == kind) return texts;
    }
    return kKinds[0];
}

NodeIDs WithID(NodeIDs place, OwnerKind kind, std::int32_t id) {
    switch (kind) {
        case OwnerKind::Application:
            place.appID = id;
            break;
        case OwnerKind::Class:
            place.classID = id;
            break;
        case OwnerKind::Procedure:
            place.codeID = id;
            break;
    }
    return place;
}

FieldTexts Together(FieldTexts texts, const FieldTexts& more) {
    texts.insert(texts.end(), more.begin(), more.end());
    return texts;
}

}  // namespace

RecordEditor::RecordEditor(Database& db, const NoiseWords& noise, const Owner& owner)
    : db_(db), noise_(noise), kind_(owner.kind) {
    if (owner.id != 0) loadedDetails_ = DetailsToEdit(LoadOwnerDetails(db_, owner));
    details_ = loadedDetails_;
}

std::optional<EditorKey> RecordEditor::Key() const {
    if (IsNew()) return std::nullopt;
    return EditorKey{kind_, ID()};
}

std::string_view RecordEditor::Caption() const {
    return IsNew() ? TextsOf(kind_).newCaption : TextsOf(kind_).editCaption;
}

std::string_view RecordEditor::KindWord() const {
    return TextsOf(kind_).word;
}

bool RecordEditor::IsChanged() const {
    return IsRecordChanged() || details_ != loadedDetails_;
}

bool RecordEditor::Check(SaveOutcome& outcome) {
    return Guarded(db_.Reporter(), Procedure::CheckEditor, [&] {
        outcome.isRefused = !CheckRecord();
        return !outcome.isRefused &&
               CheckDetailChanges(db_, ChangesBetween(loadedDetails_, details_));
    });
}

SaveOutcome RecordEditor::Save() {
    SaveOutcome outcome;  // what a failure leaves in it is true
    Guarded(db_.Reporter(), Procedure::SaveEditor, [&] { SaveInto(outcome); });
    return outcome;
}

void RecordEditor::SaveInto(SaveOutcome& outcome) {
    const Meeting meeting = IsNew() ? Meeting::GoOn : MeetStored();
    if (meeting == Meeting::GoBack) return;
    if (!IsNew()) outcome.before = WithID(LoadedPlace(), kind_, ID());
    if (meeting == Meeting::Reloaded || (!IsNew() && !IsChanged())) {
        outcome.node = outcome.before;
        outcome.result = meeting == Meeting::Reloaded ? SaveResult::Reloaded : SaveResult::Saved;
        return;
    }
    if (ConfirmLosses() && Check(outcome) && StoreAll(outcome))
        outcome.wantsKeywords = AskForKeywords();
}

/// What was stored counts as loaded from then on, also where a later step fails: saving again then
/// goes on there.
bool RecordEditor::StoreAll(SaveOutcome& outcome) {
    if (!StoreRecordFirst(outcome)) return false;
    const Owner owner{kind_, ID()};
    SaveDetailChanges(db_, noise_, owner, ChangesBetween(loadedDetails_, details_));
    details_ = loadedDetails_ = DetailsToEdit(LoadOwnerDetails(db_, owner));
    outcome.result = SaveResult::Saved;
    return true;
}

/// The place is found before the row is written: the outcome tells it also where a statement behind
/// that fails.
bool RecordEditor::StoreRecordFirst(SaveOutcome& outcome) {
    outcome.node = RecordPlace();
    if (!IsNew() && !IsRecordChanged()) return true;
    const NodeIDs place = std::exchange(outcome.node, {});
    const bool wasNew = IsNew();
    try {
        if (!StoreRecord()) return false;
    } catch (...) {
        if (wasNew && !IsNew()) NoteOwnWork(place, outcome);
        throw;
    }
    NoteOwnWork(place, outcome);
    // Columns cut texts, and comments get frames.
    const std::optional<FieldTexts> stored = StoredTexts();
    isReadBackDue_ = false;
    if (stored) TakeTexts(*stored, *stored);
    outcome.node = stored ? LoadedPlace() : NodeIDs{};
    return stored.has_value();
}

void RecordEditor::NoteOwnWork(const NodeIDs& place, SaveOutcome& outcome) {
    isReadBackDue_ = true;
    outcome.node = WithID(place, kind_, ID());
}

/// Looks at what the catalogue has of the record now, and settles with the user what becomes of it.
RecordEditor::Meeting RecordEditor::MeetStored() {
    std::optional<FieldTexts> stored = StoredTexts();
    if (!stored) {
        const std::string question =
            Sql("This ", KindWord(), " has been deleted since it was opened here.\r\n\r\n",
                "Would you like to store it as a new one?");
        if (AskYesNo(db_.GetHost().messages, question, kQuestionTitle) != StandardAnswer::Yes)
            return Meeting::GoBack;
        BecomeNew();
        return Meeting::GoOn;
    }
    const EditedDetails details = DetailsToEdit(LoadOwnerDetails(db_, {kind_, ID()}));
    *stored = Together(std::move(*stored), TextsOfDetails(details));
    const bool isOwnWork = std::exchange(isReadBackDue_, false);
    if (IsChanged() && !isOwnWork) {
        const std::string what = ChangedElsewhere(AllLoaded(), AllTexts(), *stored);
        if (!what.empty()) return MeetChanged(*stored, what);
    }
    TakeAll(*stored, Joined(AllLoaded(), AllTexts(), *stored));
    return Meeting::GoOn;
}

RecordEditor::Meeting RecordEditor::MeetChanged(const FieldTexts& stored, const std::string& what) {
    const std::string question =
        Sql("This ", KindWord(), " has been changed since it was opened here (", what,
            ").\r\n\r\nClick Yes to store what you changed and to keep the rest as it is now, "
            "click No to drop your changes and load what is stored, click Cancel to go back.");
    switch (AskYesNoCancel(db_.GetHost().messages, question, kQuestionTitle)) {
        case StandardAnswer::Yes:
            TakeAll(stored, Joined(AllLoaded(), AllTexts(), stored));
            return Meeting::GoOn;
        case StandardAnswer::No:
            TakeAll(stored, stored);
            return Meeting::Reloaded;
        case StandardAnswer::Cancel:
            break;
    }
    return Meeting::GoBack;
}

/// All of it has to be stored then, and nothing of it is.
void RecordEditor::BecomeNew() {
    ForgetStored();
    loadedDetails_ = {};
}

bool RecordEditor::AskForKeywords() {
    const bool hasKeywords = !TrimBlanks(details_.keywords.text).empty();
    if (hasKeywords || std::exchange(wasAskedForKeywords_, true)) return false;
    return snippetarium::AskForKeywords(db_.GetHost().messages, KindWord()) == StandardAnswer::Yes;
}

FieldTexts RecordEditor::AllLoaded() const {
    return Together(LoadedTexts(), TextsOfDetails(loadedDetails_));
}

FieldTexts RecordEditor::AllTexts() const {
    return Together(RecordTexts(), TextsOfDetails(details_));
}

void RecordEditor::TakeAll(const FieldTexts& loaded, const FieldTexts& texts) {
    TakeTexts(loaded, texts);
    SetTexts(loadedDetails_, loaded);
    SetTexts(details_, texts);
}

DraftTexts RecordEditor::TextsForDraft() const {
    DraftTexts draft;
    if (!IsChanged()) return draft;
    const FieldTexts loaded = AllLoaded();
    for (const FieldText& text : AllTexts()) {
        const std::string& before = *FindText(loaded, text.field);
        draft.push_back({std::string(text.field), text.text});
        if (before != text.text) draft.back().loaded = before;
    }
    return draft;
}

void RecordEditor::TakeDraft(const DraftTexts& draft) {
    const bool isThere = !IsNew() && StoredTexts().has_value();
    FieldTexts loaded;
    FieldTexts texts;
    for (const DraftText& text : draft) {
        // What the user left alone is as it is stored now.
        if (isThere && !text.loaded) continue;
        loaded.push_back({text.field, text.loaded.value_or(text.text)});
        texts.push_back({text.field, text.text});
    }
    TakeAll(loaded, texts);
}

}  // namespace snippetarium
