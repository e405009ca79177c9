#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/logical_line.h"
#include "import/procedure_starts.h"

namespace snippetarium {

// Where the procedures of a text in Visual Basic or VBScript stand.

enum class BasicDialect { VisualBasic, VbScript };

struct ProcedureBody {
    /// From the first line to the end line, a line end behind each.
    std::string text = {};
    /// False when the text ended, or the import was cancelled, before the procedure did.
    bool isClosed = false;
    /// The number of the first line inside that begins another procedure; 0 when none does.
    std::size_t strayStartLine = 0;
};

/// Reads the rest of a procedure whose first logical line was just read. Only the end of its own
/// kind closes it, wherever that comes.
ProcedureBody ReadProcedureBody(LineReader& reader, std::string_view firstRaw, ProcedureKind kind);

/// A procedure and its place: offsets from 0 in bytes, each at the beginning of a line.
struct BasicProcedure {
    /// Empty where none was found.
    std::string name = {};
    std::string code = {};
    /// The comment block above it; `begin` where there is none. A block is made of all comment
    /// lines down from the first that nothing but comments and blank lines separate from the
    /// procedure, the blank lines below it included.
    std::size_t commentBegin = 0;
    std::size_t begin = 0;
    /// Behind its last line. Blank lines behind a procedure without an end are not its own.
    std::size_t end = 0;
};

/// A line that begins with "Option Explicit", with the comment block above it.
struct OptionExplicitLine {
    std::size_t commentBegin = 0;
    std::size_t begin = 0;
};

struct BasicScan {
    /// In the order of the text.
    std::vector<BasicProcedure> procedures = {};
    /// What the first attribute says that names the class. This and what follows are taken from the
    /// lines above the first procedure.
    std::string className = {};
    std::optional<OptionExplicitLine> optionExplicit = {};
    /// Behind the comment block with which the text begins, blank lines below it included; 0 where
    /// it begins with none.
    std::size_t endOfBlockOnTop = 0;
    /// Sentences for the report (CutFile::problems).
    std::vector<std::string> problems = {};
};

/// Reads the whole text, or as much as there is when the import is cancelled.
BasicScan ScanBasic(std::string_view text, BasicDialect dialect, LineProgress& progress);

/// Where the text says "Option Explicit" first, in any letter case and wherever in a line: the
/// place above which export writes the class's header. npos when it does not.
std::size_t FindOptionExplicit(std::string_view text);

}  // namespace snippetarium
