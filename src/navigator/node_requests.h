#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "support/node_key.h"

namespace snippetarium {

class Database;

// What the commands on nodes come to: the editor or the dialog that is to be opened, and for what.
// Each operation checks the command; where it is refused, the user has been told why, and the
// result is empty.

/// The editor's window title.
inline constexpr std::string_view kEditApplicationCaption = "Edit Application";
inline constexpr std::string_view kEditClassCaption = "Edit Class";
inline constexpr std::string_view kEditProcedureCaption = "Edit Procedure";

struct EditTarget {
    NodeKind kind = NodeKind::Application;
    NodeIDs node;
    std::string_view caption;

    bool operator==(const EditTarget&) const = default;
};
using EditRequest = std::optional<EditTarget>;

/// The application, the class or the procedure of the current selection.
EditRequest EditSelectedApplication(Database& db, const NodeIDs& selection);
EditRequest EditSelectedClass(Database& db, const NodeIDs& selection);
EditRequest EditSelectedProcedure(Database& db, const NodeIDs& selection);
/// The node itself, whatever its kind: for a double-click, and for Edit of the tree's pop-up menu.
EditRequest EditNode(Database& db, const NodeIDs& node);
/// What the page view shows: a procedure's editor for a procedure, else its class's.
EditRequest EditShownPage(Database& db, const NodeIDs& shown);

/// A new record and where it goes. 0 is the undefined application or class.
struct NewTarget {
    NodeKind kind = NodeKind::Application;
    std::int32_t appID = 0;
    std::int32_t classID = 0;

    bool operator==(const NewTarget&) const = default;
};

NewTarget NewClassIn(const NodeIDs& selection);
NewTarget NewProcedureIn(const NodeIDs& selection);
/// "Add New" of the tree's pop-up menu: below an application a class, below a class or beside a
/// procedure a procedure, beside all nodes an application.
NewTarget AddNewAt(const NodeIDs& node);

/// The copying of something that is in the catalogue: a class into an application, or a procedure
/// into a class.
struct CopyTarget {
    NodeKind kind = NodeKind::Class;
    std::int32_t appID = 0;
    std::int32_t classID = 0;

    bool operator==(const CopyTarget&) const = default;
};
/// "Add Existing Class" of the menu bar: into the selected application.
std::optional<CopyTarget> AddExistingClass(Database& db, const NodeIDs& selection);
/// "Add Existing" of the tree's pop-up menu: on an application a class, else a procedure.
std::optional<CopyTarget> AddExistingAt(Database& db, const NodeIDs& node);

/// An export, with what the save dialog starts from.
struct ExportTarget {
    NodeKind kind = NodeKind::Application;
    NodeIDs node;
    /// "Export class: Grid".
    std::string title;
    /// A name for the file: for a class that of the file it was imported from, for a procedure its
    /// own name with its class's extension. Empty for an application, which goes into a folder.
    std::string fileName;

    bool operator==(const ExportTarget&) const = default;
};
/// What the page view shows; not for an application.
std::optional<ExportTarget> ExportShownPage(Database& db, const NodeIDs& shown);
std::optional<ExportTarget> ExportSelected(Database& db, const NodeIDs& selection);

/// Whether Rename of the tree's pop-up menu may start.
bool MayRename(Database& db, const NodeIDs& node);

/// The captions of the tree's pop-up menu. An empty one hides its item.
struct ContentsCaptions {
    std::string_view edit = {};
    std::string_view deleting = {};
    std::string_view exporting = {};
    std::string_view addNew = {};
    std::string_view addExisting = {};

    bool operator==(const ContentsCaptions&) const = default;
};
/// All 0 for a place beside all nodes.
ContentsCaptions CaptionsFor(const NodeIDs& node);

}  // namespace snippetarium
