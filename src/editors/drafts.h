#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "editors/record_editor.h"

namespace snippetarium {

class Database;

// Drafts: what was typed into an editor and is not stored yet. An editor's window keeps one some
// seconds after the first change that is in no draft yet, and drops it when the record is stored or
// the changes are thrown away; what a crash leaves is offered at the next start.
//
// Only the program that may write keeps drafts, and there is one such program at a time. So every
// draft that no editor of this run has open is a left one.

/// Keeps what the editor holds, in place of what was kept of it before. Nothing is kept of an
/// editor in which nothing is changed, and in a catalogue that is open for reading only. False on a
/// failure, which has been reported; a window had better not try again every few seconds.
bool SaveDraft(Database& db, RecordEditor& editor);

/// After the record was stored, or the changes were thrown away. Does nothing where there is none.
void DropDraft(Database& db, RecordEditor& editor);

/// A draft in the list of those that are offered.
struct Draft {
    std::int32_t draftID = 0;
    OwnerKind kind = OwnerKind::Application;
    /// The record that was edited; 0 for a new one.
    std::int32_t ownerID = 0;
    /// The name that it has in the draft; may be empty.
    std::string name = {};
    /// Local time: "2026-11-21 14:03:59".
    std::string savedOn = {};
    /// False where the record was deleted since. It can be stored as a new one.
    bool isOwnerThere = true;
};

/// The drafts but those of the editors that are open, the newest first. None in a catalogue that is
/// open for reading only: its drafts are those of the program that writes. Empty on a failure.
std::vector<Draft> DraftsLeft(Database& db, std::span<const std::int32_t> openDraftIDs = {});

/// "Procedure 'Draw', edited 2026-11-21 14:03" for the list.
std::string DraftTitle(const Draft& draft);

/// An editor that goes on where the draft was left: an ApplicationEditor, a ClassEditor or a
/// CodeEditor by its kind. The draft stays until the editor drops it. Null where there is no such
/// draft, and on a failure. `noise` outlives the editor.
std::unique_ptr<RecordEditor> OpenDraft(Database& db, const NoiseWords& noise,
                                        std::int32_t draftID);

/// Throws a draft away that is not open in an editor.
void DeleteDraft(Database& db, std::int32_t draftID);

}  // namespace snippetarium
