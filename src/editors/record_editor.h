#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editors/draft_text.h"
#include "editors/edited_details.h"
#include "editors/editor_key.h"
#include "editors/field_texts.h"
#include "keywords/noise_words.h"
#include "store/owner.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

enum class SaveResult : std::uint8_t {
    /// Nothing is stored, or not all of it (then the outcome has a node): the user has been told
    /// why, or wants to go on editing.
    NotSaved,
    Saved,
    /// The user wants what somebody else stored meanwhile, and the editor has it now.
    Reloaded,
};

struct SaveOutcome {
    SaveResult result = SaveResult::NotSaved;
    /// Where the record was in the tree, and where it is. All 0 where it was not; `node` also where
    /// the record's own row was not written.
    NodeIDs before = {};
    NodeIDs node = {};
    /// The name or a text of the record cannot be stored, and the user has been told why.
    bool isRefused = false;
    /// The record has no keywords, and the user wants to give it some now.
    bool wantsKeywords = false;
};

/// The editing of one application, class or procedure, from its opening to its closing, without its
/// window: what was loaded, what the user made of it, and whether that may be stored.
///
/// The window writes what the user changed into the record and the details (the record's type is
/// the editor's own: application_editor.h, class_editor.h, code_editor.h), and shows them anew
/// after each Save, whatever came of it: comments get frames, texts may have been cut or reloaded,
/// and a record that was deleted is now a new one, with another caption and key. A field whose
/// control the user did not touch is better left alone than written back: controls turn some
/// characters into others.
class RecordEditor {
  public:
    RecordEditor(const RecordEditor&) = delete;
    RecordEditor& operator=(const RecordEditor&) = delete;
    virtual ~RecordEditor() = default;

    OwnerKind Kind() const { return kind_; }
    /// 0: not stored yet.
    std::int32_t ID() const { return RecordID(); }
    bool IsNew() const { return ID() == 0; }
    /// None for a record that is not stored yet.
    std::optional<EditorKey> Key() const;

    /// "New Procedure", "Edit Procedure": the window's title.
    std::string_view Caption() const;
    /// "application", "class" or "procedure", for sentences.
    std::string_view KindWord() const;

    /// Authors, dates and keywords, as the user has them.
    EditedDetails& Details() { return details_; }
    const EditedDetails& Details() const { return details_; }

    /// Whether anything differs from what was loaded or stored last.
    bool IsChanged() const;

    /// Stores what was changed, if it may be stored as it is; where not, the user is told why.
    /// Where nothing was changed, nothing is written.
    ///
    /// Where the record has been changed or deleted since it was loaded, the user is asked what to
    /// do:
    /// - changed: what he changed is stored over it, and what he left alone stays as it is stored;
    ///   or what is stored is loaded and his changes are dropped; or he goes back to the editor;
    /// - deleted: it is stored as a new one, or he goes back.
    /// He is asked too before anything is lost: the end of a code that is too long for the
    /// catalogue, the end that an import cut off a text which he changed, the marker of a procedure
    /// in its class's text.
    ///
    /// When a record without keywords has been stored, the user is asked whether he wants to add
    /// some, once for an editor.
    SaveOutcome Save();

    /// What has to be kept so that the editing can go on after a crash. None where nothing is
    /// changed.
    DraftTexts TextsForDraft() const;
    /// Takes up a draft of this record, or of one that is gone, in place of what is shown.
    void TakeDraft(const DraftTexts& texts);

    /// The draft that the catalogue keeps of this editor (editors/drafts.h); 0 for none.
    std::int32_t DraftID() const { return draftID_; }
    void SetDraftID(std::int32_t draftID) { draftID_ = draftID; }

  protected:
    /// Loads the details of a record that is stored.
    RecordEditor(Database& db, const NoiseWords& noise, const Owner& owner);

    Database& Catalogue() const { return db_; }

  private:
    /// The record's own part of what a Save does.
    virtual FieldTexts LoadedTexts() const = 0;
    virtual FieldTexts RecordTexts() const = 0;
    /// Puts both in the place of what is there. Fields that are not among the texts stay.
    virtual void TakeTexts(const FieldTexts& loaded, const FieldTexts& texts) = 0;
    /// As the catalogue has it; none where it is gone.
    virtual std::optional<FieldTexts> StoredTexts() const = 0;
    /// From now on it is a new one.
    virtual void ForgetStored() = 0;
    virtual bool IsRecordChanged() const = 0;
    virtual bool ConfirmLosses() = 0;
    virtual bool CheckRecord() = 0;
    virtual std::int32_t RecordID() const = 0;
    /// Writes the record, which counts as loaded then. False where it is gone. A new one has its ID
    /// as soon as its row is there, also where this then fails.
    virtual bool StoreRecord() = 0;
    /// Where it was, and where it is to be. The ID of the record itself may be missing.
    virtual NodeIDs LoadedPlace() const = 0;
    virtual NodeIDs RecordPlace() const = 0;

    enum class Meeting : std::uint8_t { GoOn, GoBack, Reloaded };

    FieldTexts AllLoaded() const;
    FieldTexts AllTexts() const;
    void TakeAll(const FieldTexts& loaded, const FieldTexts& texts);
    void BecomeNew();
    Meeting MeetStored();
    Meeting MeetChanged(const FieldTexts& stored, const std::string& what);
    void SaveInto(SaveOutcome& outcome);
    bool Check(SaveOutcome& outcome);
    bool StoreAll(SaveOutcome& outcome);
    bool StoreRecordFirst(SaveOutcome& outcome);
    void NoteOwnWork(const NodeIDs& place, SaveOutcome& outcome);
    bool AskForKeywords();

    Database& db_;
    const NoiseWords& noise_;
    OwnerKind kind_;
    EditedDetails loadedDetails_;
    EditedDetails details_;
    std::int32_t draftID_ = 0;
    /// What is stored of the record is this editor's work, but could not be finished or read since.
    bool isReadBackDue_ = false;
    bool wasAskedForKeywords_ = false;
};

}  // namespace snippetarium
