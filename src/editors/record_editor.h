#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "editors/draft_text.h"
#include "editors/edited_details.h"
#include "editors/editor_key.h"
#include "keywords/noise_words.h"
#include "store/owner.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

enum class SaveResult : std::uint8_t {
    /// Nothing is stored, or not all of it: the user has been told why, or wants to go on editing.
    NotSaved,
    Saved,
    /// The user wants what somebody else stored meanwhile, and the editor has it now.
    Reloaded,
};

struct SaveOutcome {
    SaveResult result = SaveResult::NotSaved;
    /// Where the record was in the tree, and where it is. All 0 where it was not, or is not.
    NodeIDs before = {};
    NodeIDs node = {};
    /// The record has no keywords, and the user wants to give it some now.
    bool wantsKeywords = false;
};

/// The editing of one application, class or procedure, from its opening to its closing, without its
/// window: what was loaded, what the user made of it, and whether that may be stored.
///
/// The window writes what the user changed into the record and the details (the record's type is
/// the editor's own: application_editor.h, class_editor.h, code_editor.h), and shows them anew
/// after each Save that did not answer NotSaved, since what is stored may look different: comments
/// get frames. A field whose control the user did not touch is better left alone than written back:
/// controls turn some characters into others.
class RecordEditor {
  public:
    RecordEditor(const RecordEditor&) = delete;
    RecordEditor& operator=(const RecordEditor&) = delete;
    virtual ~RecordEditor() = default;

    OwnerKind Kind() const { return kind_; }
    /// 0: not stored yet.
    std::int32_t ID() const { return id_; }
    bool IsNew() const { return id_ == 0; }
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
    virtual bool IsChanged() const = 0;

    /// Whether the record and its details may be stored. Where not, the user has been told why. A
    /// code that is too long for the catalogue is cut where the user says so, and only there.
    bool Check();

    /// Stores what was changed, after a Check. Where the record has been changed or deleted since
    /// it was loaded, the user is asked what to do:
    /// - changed: his changes are stored over those of others, field by field; or what is stored is
    ///   loaded and his are dropped; or he goes back to the editor;
    /// - deleted: it is stored as a new one, or he goes back.
    /// A record without keywords is stored, and the user asked, once, whether he wants to add some.
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
    RecordEditor(Database& db, const NoiseWords& noise, OwnerKind kind, std::int32_t id);

  private:
    Database& db_;
    const NoiseWords& noise_;
    OwnerKind kind_;
    std::int32_t id_ = 0;
    EditedDetails loadedDetails_;
    EditedDetails details_;
    std::int32_t draftID_ = 0;
    bool wasAskedForKeywords_ = false;
};

}  // namespace snippetarium
